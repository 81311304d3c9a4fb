// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QVariant>

namespace platform {

/// What a control leaves with its host: values by name. A value that is its default isn't kept.
class PropertyBag {
public:
    void Write(const QString& name, const QVariant& value, const QVariant& standard) {
        if (value == standard)
            m_values.remove(name);
        else
            m_values.insert(name, value);
    }
    QVariant Read(const QString& name, const QVariant& standard) const {
        return m_values.value(name, standard);
    }

private:
    QMap<QString, QVariant> m_values;
};

} // namespace platform
