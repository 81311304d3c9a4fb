// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/base/Seam.h"

#include <QString>
#include <memory>
#include <vector>

class QPrinter;
class QWidget;

namespace platform {

class Form;

enum class Icon { None, Information, Question, Exclamation, Error };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Message {
    QString text;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
};

struct FileFilter {
    QString name;    ///< what the user sees
    QString pattern; ///< such as "*.lua"
};

struct FileQuestion {
    QWidget* owner = nullptr;
    QString title;
    QString folder; ///< program path; empty: the current directory
    std::vector<FileFilter> filters;
};

/// Everything that waits for the user before the program goes on. A test puts its own in its place.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Leaving the box by Escape or its frame answers Cancel or No, whichever there is.
    virtual Answer Ask(const Message& message) = 0;
    /// The program path of the pick, or empty if the user left. Neither asks whether a file exists,
    /// nor adds an extension; a pick moves the current directory to its folder.
    virtual QString AskOpenName(const FileQuestion& question) = 0;
    virtual QString AskSaveName(const FileQuestion& question) = 0;
    /// Shows the form and returns when it is unloaded.
    virtual void RunModal(Form& form) = 0;
    /// Each changes the printer and answers whether the user went on.
    virtual bool SetUpPage(QPrinter& printer, QWidget* owner) = 0;
    virtual bool SetUpPrint(QPrinter& printer, QWidget* owner) = 0;
};

/// Those of the desktop unless a test has put its own there.
Dialogs& CurrentDialogs();
Seam<std::unique_ptr<Dialogs>>& DialogsSeam();

/// Shows a message box and waits for the answer.
Answer MsgBox(const QString& text, Buttons buttons, Icon icon,
              const QString& title = QStringLiteral("Quillmark"));

} // namespace platform
