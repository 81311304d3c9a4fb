// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace bench {

using Clock = std::chrono::steady_clock;

/// Prints the milliseconds from the moment named in the first argument (nanoseconds of the steady
/// clock) to the first painting of a window, less what `pause` answers, and ends the process.
class FirstPaint : public QObject {
public:
    FirstPaint(const char* start, QWidget* window, std::function<Clock::duration()> pause)
        : m_start(std::chrono::nanoseconds(std::atoll(start))),
          m_window(window),
          m_pause(std::move(pause)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == m_window && event->type() == QEvent::Paint)
            QTimer::singleShot(0, [this] {
                const auto took = Clock::now() - m_start - m_pause();
                std::printf("%f\n", std::chrono::duration<double, std::milli>(took).count());
                std::fflush(stdout);
                std::_Exit(0);
            });
        return false;
    }

private:
    Clock::time_point m_start;
    QWidget* m_window;
    std::function<Clock::duration()> m_pause;
};

} // namespace bench
