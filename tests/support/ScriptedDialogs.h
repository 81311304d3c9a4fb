// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/forms/Dialogs.h"
#include "platform/forms/Form.h"
#include "support/Override.h"

#include <QStringList>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace support {

/// Stands in the place of the desktop's dialogs while it lives. Each dialog must have been
/// announced, in order, or the test fails; so does one that was announced and did not come.
class ScriptedDialogs {
public:
    ~ScriptedDialogs() {
        EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " announced dialogs did not come";
    }

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
    struct Step {
        enum { Message, Name, Form, Printer } kind = Message;
        QString text = {};
        std::optional<platform::Answer> answer = platform::Answer::Cancel;
        std::function<void(platform::Form&)> form = [](platform::Form&) {};
        std::function<bool(QPrinter&)> printer = [](QPrinter&) { return false; };
    };

    struct Stand : platform::Dialogs {
        explicit Stand(ScriptedDialogs& owner) : script(owner) {}
        platform::Answer Ask(const platform::Message& message) override {
            script.messages.push_back(message);
            const Step step = script.Next(Step::Message, message.text);
            EXPECT_TRUE(message.text.contains(step.text)) << message.text.toStdString();
            return step.answer.value();
        }
        QString AskOpenName(const platform::FileQuestion& question) override {
            script.questions.push_back(question);
            return script.Next(Step::Name, question.title).text;
        }
        QString AskSaveName(const platform::FileQuestion& question) override {
            return AskOpenName(question);
        }
        void RunModal(platform::Form& form) override {
            form.Show();
            script.Next(Step::Form, form.Caption()).form(form);
            form.Unload();
        }
        bool SetUpPage(QPrinter& printer, QWidget*) override { return SetUp(printer, "page"); }
        bool SetUpPrint(QPrinter& printer, QWidget*) override { return SetUp(printer, "print"); }
        bool SetUp(QPrinter& printer, const char* kind) {
            script.printers.append(QString::fromLatin1(kind));
            return script.Next(Step::Printer, script.printers.last()).printer(printer);
        }

        ScriptedDialogs& script;
    };

    Step Next(int kind, const QString& what) {
        Step step;
        if (m_steps.empty() || m_steps.front().kind != kind) {
            ADD_FAILURE() << "unexpected dialog: " << what.toStdString();
            return step;
        }
        step = std::move(m_steps.front());
        m_steps.pop_front();
        return step;
    }

    std::deque<Step> m_steps;
    Override<std::unique_ptr<platform::Dialogs>> m_stand{platform::DialogsSeam(),
                                                         std::make_unique<Stand>(*this)};
};

} // namespace support
