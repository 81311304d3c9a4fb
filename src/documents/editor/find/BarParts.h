// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QAbstractButton;
class QHBoxLayout;
class QLineEdit;
class QWidget;

namespace documents {

/// What the bars around the text are made of.
inline constexpr int kBarMargin = 3;       // in pixels
inline constexpr int kLongestField = 1000; // in characters

/// A row of parts in a bar.
QHBoxLayout* MakeBarRow(QWidget* row);
/// A field whose name stands in it while it is empty.
QLineEdit* MakeBarField(QWidget* bar, const QString& name);
/// A button which Alt and the letter press while the focus is in the bar.
QAbstractButton* MakeBarButton(QWidget* bar, const QString& text, const QString& tip,
                               Qt::Key letter = Qt::Key_unknown);
/// The same, and it stays down.
QAbstractButton* MakeBarSwitch(QWidget* bar, const QString& text, const QString& tip,
                               Qt::Key letter);
/// Shows by the field's colour that what stands in it leads nowhere.
void ShowAsVain(QLineEdit& field, bool vain);

} // namespace documents
