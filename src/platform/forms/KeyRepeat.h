// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace platform {

/// Keeps a key that is held down from triggering a QAction without auto-repeat again and again.
/// QAction does so itself, but takes a repeat for a new press of the key whenever the release that
/// comes with the repeat was read a moment earlier.
class KeyRepeat : public QObject {
    Q_OBJECT

public:
    KeyRepeat();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    int m_released = 0; ///< the last key that went up, and when, in milliseconds
    quint64 m_when = 0;
    bool m_repeats = false;
};

} // namespace platform
