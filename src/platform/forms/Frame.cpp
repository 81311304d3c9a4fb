// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Frame.h"

#include "platform/forms/ToolTip.h"
#include "platform/text/NativeNames.h"

namespace platform {
namespace {

constexpr int kTitleMargin = 24; // pixels, on both sides together

} // namespace

void Frame::Caption(const QString& caption) {
    m_caption = caption;
    setToolTip(ToolTipText(DisplayText(caption)));
    FitTitle();
}

void Frame::FitTitle() {
    const QString title =
        fontMetrics().elidedText(DisplayText(m_caption), Qt::ElideMiddle, width() - kTitleMargin);
    setTitle(QString(title).replace(u'&', QStringLiteral("&&")));
}

void Frame::resizeEvent(QResizeEvent* event) {
    QGroupBox::resizeEvent(event);
    FitTitle();
}

} // namespace platform
