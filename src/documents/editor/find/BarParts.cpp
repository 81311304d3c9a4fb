// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/find/BarParts.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace documents {
namespace {

const QColor kVainPaper(255, 214, 214);
const QColor kHintInk(128, 128, 128); // some dark desktops leave it black

QPalette FieldColors() {
    QPalette colors;
    colors.setColor(QPalette::PlaceholderText, kHintInk);
    return colors;
}

} // namespace

QHBoxLayout* MakeBarRow(QWidget* row) {
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kBarMargin);
    return layout;
}

QLineEdit* MakeBarField(QWidget* bar, const QString& name) {
    auto* field = new QLineEdit(bar);
    field->setMaxLength(kLongestField);
    field->setPlaceholderText(name);
    field->setAccessibleName(name);
    field->setPalette(FieldColors());
    return field;
}

QAbstractButton* MakeBarButton(QWidget* bar, const QString& text, const QString& tip,
                               Qt::Key letter) {
    auto* button = new QToolButton(bar);
    button->setText(text);
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    if (letter == Qt::Key_unknown)
        return button;
    const QKeySequence key(Qt::ALT | letter);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(tip, key.toString(QKeySequence::NativeText)));
    auto* shortcut = new QShortcut(key, bar);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
    return button;
}

QAbstractButton* MakeBarSwitch(QWidget* bar, const QString& text, const QString& tip,
                               Qt::Key letter) {
    QAbstractButton* button = MakeBarButton(bar, text, tip, letter);
    button->setCheckable(true);
    return button;
}

void ShowAsVain(QLineEdit& field, bool vain) {
    QPalette colors = FieldColors();
    if (vain) {
        colors.setColor(QPalette::Base, kVainPaper);
        colors.setColor(QPalette::Text, Qt::black);
    }
    field.setPalette(colors);
}

} // namespace documents
