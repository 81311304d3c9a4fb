// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/forms/Dialogs.h"

#include "platform/base/Failure.h"
#include "platform/files/Paths.h"
#include "platform/forms/Form.h"
#include "platform/text/NativeNames.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QStringList>
#include <QTreeView>
#include <filesystem>

namespace platform {
namespace {

constexpr QSize kFileDialogSize(760, 480);

QMessageBox::Icon BoxIcon(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Error:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons BoxButtons(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

Answer AnswerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

// QFileIconProvider names these in English.
class SpanishTypes : public QFileIconProvider {
public:
    QString type(const QFileInfo& info) const override {
        if (info.isRoot())
            return QStringLiteral("Unidad");
        if (info.isDir())
            return QStringLiteral("Carpeta");
        return info.isFile() ? QFileIconProvider::type(info) : QStringLiteral("Otro");
    }
};

// The first column, of names, takes the width that the others leave; these are never cut off.
void FitColumns(QFileDialog& dialog) {
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!list)
        return;
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

class DesktopDialogs : public Dialogs {
public:
    Answer Ask(const Message& message) override {
        QMessageBox box(BoxIcon(message.icon), DisplayText(message.title),
                        DisplayText(message.text), BoxButtons(message.buttons),
                        QApplication::activeWindow());
        box.setTextFormat(Qt::PlainText); // a file name is no markup
        if (message.buttons == Buttons::YesNo)
            box.setEscapeButton(QMessageBox::No);
        return AnswerOf(box.exec());
    }

    QString AskOpenName(const FileQuestion& question) override {
        return AskName(question, QFileDialog::AcceptOpen);
    }

    QString AskSaveName(const FileQuestion& question) override {
        return AskName(question, QFileDialog::AcceptSave);
    }

    void RunModal(Form& form) override {
        QEventLoop loop;
        QObject::connect(&form, &Form::Unloaded, &loop, &QEventLoop::quit);
        form.setWindowModality(Qt::ApplicationModal);
        form.Show();
        loop.exec();
    }

    bool SetUpPage(QPrinter& printer, QWidget* owner) override {
        return QPageSetupDialog(&printer, owner).exec() == QDialog::Accepted;
    }

    bool SetUpPrint(QPrinter& printer, QWidget* owner) override {
        return QPrintDialog(&printer, owner).exec() == QDialog::Accepted;
    }

private:
    static QString AskName(const FileQuestion& question, QFileDialog::AcceptMode mode) {
        SpanishTypes types; // outlives the dialog
        QFileDialog dialog(question.owner, question.title);
        dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                          QFileDialog::HideNameFilterDetails);
        dialog.resize(kFileDialogSize);
        dialog.setIconProvider(&types);
        FitColumns(dialog);
        dialog.setAcceptMode(mode);
        dialog.setFileMode(QFileDialog::AnyFile);
        // Always set, since QFileDialog remembers the folder of the last one.
        dialog.setDirectory(question.folder.isEmpty()
                                ? QDir::currentPath()
                                : QString::fromStdString(ToNative(question.folder).native()));
        QStringList filters;
        for (const FileFilter& filter : question.filters)
            filters.append(QStringLiteral("%1 (%2)").arg(filter.name, filter.pattern));
        dialog.setNameFilters(filters);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return {};
        const std::filesystem::path pick = dialog.selectedFiles().constFirst().toStdString();
        MoveTo(pick.parent_path());
        return FromNative(pick);
    }

    static void MoveTo(const std::filesystem::path& folder) {
        try {
            ChangeDirectory(FromNative(folder));
        } catch (const Failure&) {
            // Opening or saving the file will tell the user.
        }
    }
};

} // namespace

Seam<std::unique_ptr<Dialogs>>& DialogsSeam() {
    static Seam<std::unique_ptr<Dialogs>> seam(std::make_unique<DesktopDialogs>());
    return seam;
}

Dialogs& CurrentDialogs() {
    return *DialogsSeam().Current();
}

Answer MsgBox(const QString& text, Buttons buttons, Icon icon, const QString& title) {
    return CurrentDialogs().Ask({text, title, icon, buttons});
}

} // namespace platform
