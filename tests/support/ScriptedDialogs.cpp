// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ScriptedDialogs.h"

#include "platform/Form.h"

#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;
namespace support {

class ScriptedDialogs::Stand : public platform::Dialogs {
public:
    explicit Stand(ScriptedDialogs& script) : m_script(script) {}

    platform::Answer Ask(const platform::Message& message) override {
        m_script.messages.push_back(message);
        const Step step = m_script.Next(Step::Message, message.text);
        EXPECT_TRUE(message.text.contains(step.text)) << message.text.toStdString();
        return step.answer.value();
    }
    QString AskOpenName(const platform::FileQuestion& question) override { return Name(question); }
    QString AskSaveName(const platform::FileQuestion& question) override { return Name(question); }
    void RunModal(platform::Form& form) override {
        form.Show();
        const Step step = m_script.Next(Step::Form, form.Caption());
        if (step.form)
            step.form(form);
        form.Unload();
    }
    bool SetUpPage(QPrinter& printer, QWidget*) override { return Printer(printer, u"page"_s); }
    bool SetUpPrint(QPrinter& printer, QWidget*) override { return Printer(printer, u"print"_s); }

private:
    QString Name(const platform::FileQuestion& question) {
        m_script.questions.push_back(question);
        return m_script.Next(Step::Name, question.title).text;
    }
    bool Printer(QPrinter& printer, const QString& kind) {
        m_script.printers.append(kind);
        const Step step = m_script.Next(Step::Printer, u"printer"_s);
        return step.printer && step.printer(printer);
    }

    ScriptedDialogs& m_script;
};

ScriptedDialogs::ScriptedDialogs()
    : m_before(platform::ReplaceDialogs(std::make_unique<Stand>(*this))) {}

ScriptedDialogs::~ScriptedDialogs() {
    EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " announced dialogs did not come";
    platform::ReplaceDialogs(std::move(m_before));
}

ScriptedDialogs::Step ScriptedDialogs::Next(int kind, const QString& what) {
    if (m_steps.empty() || m_steps.front().kind != kind) {
        ADD_FAILURE() << "unexpected dialog: " << what.toStdString();
        return {.answer = platform::Answer::Cancel};
    }
    Step step = std::move(m_steps.front());
    m_steps.pop_front();
    return step;
}

} // namespace support
