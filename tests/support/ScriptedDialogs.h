// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Dialogs.h"

#include <QStringList>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace support {

/// Stands in the place of the desktop's dialogs while it lives. Each dialog must have been
/// announced, in order, or the test fails; so does one that was announced and did not come.
class ScriptedDialogs {
public:
    ScriptedDialogs();
    ~ScriptedDialogs();

    /// A message box whose text holds `text`, and the answer to it; none: the box itself fails.
    void Expect(const QString& text,
                std::optional<platform::Answer> answer = platform::Answer::Ok) {
        m_steps.push_back({.kind = Step::Message, .text = text, .answer = answer});
    }
    /// A file dialog, and the name that the user picks; empty: the user leaves.
    void ExpectName(const QString& name) { m_steps.push_back({.kind = Step::Name, .text = name}); }
    /// A modal form, and what the user does in it.
    void ExpectForm(std::function<void(platform::Form&)> use) {
        m_steps.push_back({.kind = Step::Form, .form = std::move(use)});
    }
    /// The print dialog or the page set-up, and what the user sets; a false answer leaves it.
    void ExpectPrinter(std::function<bool(QPrinter&)> use) {
        m_steps.push_back({.kind = Step::Printer, .printer = std::move(use)});
    }

    /// All that was asked so far.
    std::vector<platform::Message> messages;
    std::vector<platform::FileQuestion> questions;
    QStringList printers; ///< "page" or "print"

private:
    class Stand;
    struct Step {
        enum { Message, Name, Form, Printer } kind = Message;
        QString text = {};
        std::optional<platform::Answer> answer = {};
        std::function<void(platform::Form&)> form = {};
        std::function<bool(QPrinter&)> printer = {};
    };
    Step Next(int kind, const QString& what);

    std::deque<Step> m_steps;
    std::unique_ptr<platform::Dialogs> m_before;
};

} // namespace support
