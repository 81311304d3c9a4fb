// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>

namespace platform {

/// A box around controls with a caption of any length, such as a path: what doesn't fit is left out
/// of its middle.
class Frame : public QGroupBox {
    Q_OBJECT

public:
    using QGroupBox::QGroupBox;

    const QString& Caption() const { return m_caption; }
    void Caption(const QString& caption);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void FitTitle();

    QString m_caption;
};

} // namespace platform
