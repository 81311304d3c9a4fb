// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QHash>
#include <QIcon>

namespace platform {

/// Pictures by key.
class ImageList {
public:
    void ClearImages() { m_images.clear(); }
    /// A key that is taken keeps its picture.
    void AddImage(const QString& key, const QIcon& picture) {
        if (!m_images.contains(key))
            m_images.insert(key, picture);
    }
    QIcon Image(const QString& key) const { return m_images.value(key); }
    QStringList Keys() const { return m_images.keys(); }

    const QColor& BackColor() const { return m_backColor; }
    void BackColor(const QColor& color) { m_backColor = color; }
    const QColor& MaskColor() const { return m_maskColor; }
    void MaskColor(const QColor& color) { m_maskColor = color; }

private:
    QHash<QString, QIcon> m_images;
    QColor m_backColor;
    QColor m_maskColor;
};

} // namespace platform
