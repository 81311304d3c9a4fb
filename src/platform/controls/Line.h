// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace platform {

/// A line over the control that it lies in, one pixel wide, black and white in turn. The mouse goes
/// through it. The ends are in twips of the control's inner area and lie on the line.
class Line : public QWidget {
    Q_OBJECT
    Q_PROPERTY(float X1 READ X1 WRITE X1)
    Q_PROPERTY(float Y1 READ Y1 WRITE Y1)
    Q_PROPERTY(float X2 READ X2 WRITE X2)
    Q_PROPERTY(float Y2 READ Y2 WRITE Y2)

public:
    explicit Line(QWidget* parent);

    float X1() const { return m_x1; }
    void X1(float twips) {
        m_x1 = twips;
        Place();
    }
    float Y1() const { return m_y1; }
    void Y1(float twips) {
        m_y1 = twips;
        Place();
    }
    float X2() const { return m_x2; }
    void X2(float twips) {
        m_x2 = twips;
        Place();
    }
    float Y2() const { return m_y2; }
    void Y2(float twips) {
        m_y2 = twips;
        Place();
    }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPoint First() const;
    QPoint Last() const;
    void Place();

    float m_x1 = 0;
    float m_y1 = 0;
    float m_x2 = 0;
    float m_y2 = 0;
};

} // namespace platform
