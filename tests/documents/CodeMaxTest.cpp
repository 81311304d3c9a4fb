// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/CodeMax.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "documents/editor/find/FindBar.h"
#include "documents/editor/view/HelpPane.h"
#include "platform/base/Failure.h"
#include "platform/forms/Form.h"
#include "support/Colors.h"
#include "support/ScriptedDialogs.h"
#include "support/TestHome.h"

#include <QApplication>
#include <QClipboard>
#include <QPrinter>
#include <QProcess>
#include <QTest>
#include <Qsci/qsciscintilla.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace documents;
using platform::Failure;

namespace {

class CodeMaxTest : public testing::Test {
protected:
    CodeMaxTest() {
        QObject::connect(&control, &CodeMax::Change, &window, [this] { ++changes; });
        window.resize(400, 300);
        control.resize(window.size());
        window.show();
        control.SetFocus();
    }
    // Opens the bytes as a file, types at its head, saves it elsewhere and answers the bytes.
    QByteArray Through(const QByteArray& bytes, const QString& typed = {}) {
        CodeMax editor;
        editor.OpenFile(home.Put("dentro.lua", bytes));
        editor.SelText(typed);
        editor.SaveFile(u"C:\\fuera.lua"_s, false);
        return home.Get("fuera.lua");
    }
    QsciScintilla* Engine() { return control.findChild<QsciScintilla*>(); }

    support::TestHome home;
    QWidget window;
    CodeMax control{&window};
    int changes = 0;
};

constexpr qsizetype kLongest = 1 << 20;

} // namespace

TEST_F(CodeMaxTest, OpenedAndSavedIsTheSameBytes) {
    QByteArray all;
    for (int byte = 1; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    using enum platform::TextEncoding;
    std::vector<QByteArray> files = {"", all, QByteArray("x = 1 -- \xF1\r\n").repeated(200000)};
    for (const auto encoding : {CodePage, Utf8, Utf8WithMark, Utf16LEWithMark, Utf16BEWithMark}) {
        for (const char* text : {"x\r\nñ\r\n", "x\nñ\n", "x\rñ\r", "\n\rx\r\nñ\ry\n", "ñ", "x\n"})
            files.push_back(platform::EncodeText(text, encoding).bytes);
    }
    for (const QByteArray& bytes : files)
        EXPECT_EQ(Through(bytes), bytes) << bytes.left(40).toHex().toStdString();
    // So are they behind what is typed, unless it doesn't fit in the encoding.
    EXPECT_EQ(Through("\xF1\r\nb", u"ñ\n"_s), "\xF1\n\xF1\r\nb");
    EXPECT_EQ(Through("\xC3\xB1\r", u"ñ\n"_s), "\xC3\xB1\n\xC3\xB1\r");
    EXPECT_EQ(Through("\xF1", u"→"_s), u"→ñ"_s.toUtf8());
}

TEST_F(CodeMaxTest, TypedLinesBeginAsTheLastAndEndAsTheFileDoes) {
    control.SetOption(kAutoIndentOption, 1);
    control.SetOption(kKeepTabsOption, true);
    for (const char* end : {"\n", "\r", "\r\n"}) {
        control.OpenFile(home.Put("a.lua", QByteArray("  x") + end + "y"));
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Return})
            QTest::keyClick(Engine(), key);
        EXPECT_EQ(control.Text(), u"  x%1  %1y"_s.arg(QLatin1String(end)));
        QTest::keyClick(Engine(), Qt::Key_Tab);
        EXPECT_EQ(control.Text(), u"  x%1\t%1y"_s.arg(QLatin1String(end)));
    }
}

TEST_F(CodeMaxTest, HistoryBeginsWithTheFirstContent) {
    control.Text(u"añil"_s);
    control.Undo();
    EXPECT_EQ(control.Text(), u"añil"_s);
    EXPECT_EQ(changes, 0);
    control.Text(u"aórta"_s);
    EXPECT_EQ(changes, 1);
    control.SelText(u"un\r\ntexto →"_s);
    EXPECT_EQ(control.Text(), u"aórtaun\r\ntexto →"_s);
    control.SaveFile(u"C:\\x.lua"_s, false); // doesn't empty it
    control.Undo();
    EXPECT_EQ(control.Text(), u"aórta"_s);
    control.SaveFile(u"C:\\x.lua"_s, false);
    EXPECT_EQ(home.Get("x.lua"), u"aórta"_s.toUtf8()); // in UTF-8 still
    control.Undo();
    EXPECT_EQ(control.Text(), u"añil"_s);
    control.Redo();
    EXPECT_EQ(control.Text(), u"aórta"_s);

    changes = 0;
    control.OpenFile(home.Put("a.lua", "abierto"));
    control.Undo();
    EXPECT_EQ(control.Text(), u"abierto"_s);
    EXPECT_EQ(changes, 0);
    control.OpenFile(home.Put("vacio.lua", ""));
    control.Text(u"x"_s); // an empty file is a content too
    EXPECT_EQ(changes, 1);
}

TEST_F(CodeMaxTest, WhatReplacesASelectionIsOneChangeAndSoIsAStepBack) {
    QApplication::clipboard()->setText(u"ñ"_s);
    control.Text(u"sel"_s);
    const std::vector<std::function<void()>> ways = {
        [&] { control.SelText(u"x"_s); },
        [&] { control.Paste(); },
        [&] { QTest::keyClicks(Engine(), u"x"_s); },
        [&] { QTest::keyClick(Engine(), Qt::Key_Delete); },
        [&] { control.Undo(); },
        [&] { control.Redo(); },
        [&] { QTest::keyClick(Engine(), Qt::Key_Z, Qt::ControlModifier); },
    };
    for (size_t i = 0; i < ways.size(); ++i) {
        if (i < 4)
            control.ExecuteCmd(kSelectAllCommand);
        const QString before = control.Text();
        changes = 0;
        ways[i]();
        EXPECT_EQ(changes, 1) << i;
        EXPECT_NE(control.Text(), before) << i;
    }
}

TEST_F(CodeMaxTest, WhatCannotBeOpenedChangesNothing) {
    control.Text(u"mí"_s);
    control.SelText(u"o"_s);
    const QString nul = home.Put("binario.lua", QByteArray("a\0b", 3));
    const QString wide = home.Put("largo.lua", "\xEF\xBB\xBF\n" + QByteArray(kLongest + 1, 'x'));
    for (const QString& path : {nul, wide, u"C:\\no.lua"_s, u"C:\\"_s}) {
        try {
            control.OpenFile(path);
            ADD_FAILURE() << path.toStdString();
        } catch (const Failure& failure) {
            EXPECT_TRUE(failure.Text().contains(path)) << failure.Text().toStdString();
        }
    }
    EXPECT_THROW(control.Text(QString(kLongest + 1, u'x')), Failure);
    EXPECT_EQ(control.Text(), u"omí"_s);
    control.SaveFile(u"C:\\mío.lua"_s, false);
    EXPECT_EQ(home.Get("mío.lua"), "om\xED"); // in its own encoding still
    control.Undo();
    EXPECT_EQ(control.Text(), u"mí"_s);
    EXPECT_THROW(control.SaveFile(QString(), false), Failure);
}

TEST_F(CodeMaxTest, LongLinesStayQuickAndKeepTheirText) {
    control.SetOption(kSyntaxColorOption, true);
    control.SetOption(kBraceMatchOption, true);
    // What the engine measures at once is one character, but for a pair of CR LF and its line.
    const auto quick = [&] {
        const auto style = [&](unsigned long at) {
            return Engine()->SendScintilla(QsciScintilla::SCI_GETSTYLEAT, at);
        };
        return style(0) != style(2) && style(0) == style(1) && style(2) != style(3);
    };
    const QByteArray line = "\xF1--" + QByteArray(kLongest - 6, 'x') + "--\r\n";
    EXPECT_EQ(Through(line, u"ñ"_s), "\xF1" + line);
    control.OpenFile(home.Put("a.lua", line));
    EXPECT_TRUE(quick());
    EXPECT_EQ(Engine()->braceMatching(), QsciScintilla::NoBraceMatch);
    control.Text(QString());
    EXPECT_FALSE(quick());
    EXPECT_EQ(Engine()->braceMatching(), QsciScintilla::SloppyBraceMatch);
    QApplication::clipboard()->setText(u"ñ"_s + QString(kLongest - 2, u'x'));
    QTest::keyClick(Engine(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(quick());

    support::ScriptedDialogs dialogs;
    const QString text = control.Text();
    for (int i = 0; i < 2; ++i)
        dialogs.Expect(u"una línea de más de 1 MiB"_s);
    QTest::keyClick(Engine(), Qt::Key_V, Qt::ControlModifier);
    control.Paste();
    EXPECT_EQ(control.Text(), text);
}

TEST_F(CodeMaxTest, TakesNoNulAndNothingThatItDoesNotKnow) {
    QApplication::clipboard()->setText(u"a\r\nb\0c"_s.left(6));
    control.Paste();
    control.Text(u"x"_s);
    control.Undo(); // as what is pasted is a content to go back to
    EXPECT_EQ(control.Text(), u"a\r\nbc"_s);
    EXPECT_THROW(control.ExecuteCmd(kSelectAllCommand + 1), Failure);
    for (const int item : {-1, kLastColorItem + 1})
        EXPECT_THROW(control.SetColor(item, 0), Failure);
    EXPECT_THROW(control.SetOption(kSyntaxColorOption + 1, 1), Failure);
    EXPECT_THROW(control.PrintDoc(0, kPrintFlags + 1), Failure);
}

TEST_F(CodeMaxTest, LeavesTheMenuItsKeys) {
    EXPECT_EQ(window.focusWidget(), Engine());
    control.Text(u"uno\r\ndos"_s);
    for (const char* key :
         {"Ctrl+N", "Ctrl+A", "Ctrl+S", "Ctrl+Q", "Ctrl+E", "Ctrl+W", "Ctrl+F4", "Ctrl+F6",
          "Ctrl+Tab", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F10", "F12"}) {
        const QKeyCombination combined = QKeySequence(QLatin1StringView(key))[0];
        QKeyEvent event(QEvent::ShortcutOverride, combined.key(), combined.keyboardModifiers());
        event.ignore();
        QApplication::sendEvent(Engine(), &event);
        EXPECT_FALSE(event.isAccepted()) << key;
        QTest::keyClick(Engine(), combined.key(), combined.keyboardModifiers());
    }
    EXPECT_EQ(control.Text(), u"uno\r\ndos"_s);
}

TEST_F(CodeMaxTest, ColorsLuaAsItWasTold) {
    control.Text(u"local "_s + QString(40, QChar(0x2588)));
    control.SetOption(kSyntaxColorOption, true);
    control.FontName(u"Courier New"_s);
    control.FontSize(20);
    constexpr QRgb kBlue = 0x0000FF;
    constexpr QRgb kOther = 0x123456; // 0x563412 as the control takes it
    const auto colored = [&](QRgb color) {
        return support::Colors(control).contains(color | 0xFF000000);
    };
    EXPECT_TRUE(colored(kBlue)); // "local" in blue
    control.Text(u"goto x"_s);   // a name like any other
    EXPECT_FALSE(colored(kBlue));
    control.SetOption(kLineNumberOption, true);
    control.SetOption(kLeftMarginOption, true);
    const auto shows = [&](int item, const QStringList& texts) {
        for (const QString& text : texts) {
            control.Text(text);
            EXPECT_FALSE(colored(kOther));
            control.SetColor(item, 0x563412);
            EXPECT_TRUE(colored(kOther)) << item << text.toStdString();
            control.SetColor(item, -1);
        }
    };
    for (const int item :
         {kWindowItem, kLeftMarginItem, kLineNumberTextItem, kLineNumberBackgroundItem})
        shows(item, {QString()});
    shows(kStringItem, {u"'H'"_s, u"\"H\""_s, u"[[H]]"_s, u"'H\n"_s});
    shows(kCommentItem, {u"--H"_s, u"--[[H"_s});
    shows(kTextItem, {u"H"_s});
    shows(kNumberItem, {u"1"_s});
    shows(kKeywordItem, {u"nil"_s});
    shows(kScopeKeywordItem, {u"if"_s});
    shows(kOperatorItem, {u"="_s});
    control.Text(u"local"_s);
    control.SetOption(kSyntaxColorOption, false);
    EXPECT_FALSE(colored(kBlue));
}

TEST_F(CodeMaxTest, PrintsEveryLineWithHeadAndPageNumber) {
    support::ScriptedDialogs dialogs;
    const QString pdf = QString::fromStdString((home.Root() / "salida.pdf").native());
    window.setWindowTitle(platform::TitleText(u"un título [*]"_s));
    QString text;
    for (int i = 0; i < 300; ++i)
        text += u"print('línea %1.')\r\n"_s.arg(i);
    control.Text(text);
    dialogs.ExpectPrinter([](QPrinter& printer) {
        printer.setPageSize(QPageSize(QPageSize::A5));
        return true;
    });
    control.PrintDoc(0, kPageSetupFlags);
    QPageSize::PageSizeId size = QPageSize::A5;
    const auto print = [&](const QString& file) {
        dialogs.ExpectPrinter([&, file](QPrinter& printer) {
            EXPECT_EQ(printer.pageLayout().pageSize().id(), size); // as it was left
            printer.setPageSize(QPageSize(size = QPageSize::A6));
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file);
            return true;
        });
        control.PrintDoc(0, kPrintFlags);
    };
    print(pdf);
    EXPECT_EQ(QProcess::execute(u"pdftotext"_s, {u"-raw"_s, pdf}), 0);
    const QStringList pages =
        QString::fromUtf8(home.Get("salida.txt")).split(u'\f', Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        EXPECT_TRUE(pages[i].contains(u"Página %1\n"_s.arg(i + 1))) << i;
        EXPECT_TRUE(pages[i].contains(u"un título [*]"_s) && pages[i].count(u"[*]"_s) == 1);
    }
    for (int i = 0; i < 300; ++i)
        EXPECT_EQ(pages.join(QString()).count(u"línea %1."_s.arg(i)), 1) << i;

    dialogs.ExpectPrinter([](QPrinter&) { return false; });
    control.PrintDoc(0, kPrintFlags);
    EXPECT_THROW(print(u"/no/hay/x.pdf"_s), Failure);
    control.Text(QString());
    print(pdf); // nothing to print is no failure
}

TEST_F(CodeMaxTest, EscapeInTheTextClosesWhatIsOpenBelowItOneByOne) {
    window.activateWindow(); // keys of commands go to the active window
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* find = control.findChild<FindBar*>();
    auto* help = control.findChild<HelpPane*>();
    QTest::keyClick(Engine(), Qt::Key_F1, Qt::ShiftModifier);
    control.SetFocus();
    QTest::keyClick(Engine(), Qt::Key_F, Qt::ControlModifier);
    control.SetFocus();
    QTest::keyClicks(Engine(), u"pri"_s); // a list opens
    const auto open = [&] { return std::pair(find->isVisible(), help->isVisible()); };
    for (const auto& left : {std::pair(true, true), {false, true}, {false, false}}) {
        QTest::keyClick(Engine(), Qt::Key_Escape);
        EXPECT_EQ(open(), left);
        EXPECT_EQ(window.focusWidget(), Engine());
    }
    EXPECT_EQ(control.Text(), u"pri"_s);
}
