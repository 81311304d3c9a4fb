// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/editor/find/Search.h"

#include <QWidget>

class QAbstractButton;
class QLabel;

namespace documents {

/// The three switches below a field that say how to look for what stands in it.
class SearchSwitches : public QWidget {
    Q_OBJECT

public:
    /// Alt+M, Alt+P and Alt+R press them while the focus is in the bar.
    explicit SearchSwitches(QWidget* bar);

    /// A row of the bar with them and, to their right, what the search has to say.
    QWidget* MakeRowWith(QLabel* state);

    /// A search for the text as they stand.
    SearchFor For(const QString& what) const;
    /// Sets them as the search has them; tells nothing.
    void Show(const SearchFor& wanted);

Q_SIGNALS:
    /// The user has pressed one.
    void Pressed();

private:
    QAbstractButton* m_case;
    QAbstractButton* m_word;
    QAbstractButton* m_pattern;
};

} // namespace documents
