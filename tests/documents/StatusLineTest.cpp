// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/StatusLine.h"
#include "documents/editor/CodeMax.h"
#include "documents/editor/engine/CodeMaxConstants.h"
#include "documents/editor/engine/EditorSettings.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/view/MessageBar.h"
#include "documents/editor/view/Zoom.h"
#include "support/Colors.h"
#include "support/TestHome.h"

#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace documents;

namespace {

class StatusLineTest : public testing::Test {
protected:
    StatusLineTest() {
        control.resize(900, 300);
        control.FontName(u"Courier New"_s);
        control.FontSize(10);
        control.show();
    }
    // The fields that are seen, once they have followed.
    QString Shown() {
        QTest::qWait(80);
        QStringList texts;
        for (const QToolButton* field : Line()->findChildren<QToolButton*>()) {
            if (field->isVisible())
                texts.append(field->text());
        }
        return texts.join(u" | "_s);
    }
    StatusLine* Line() { return control.findChild<StatusLine*>(); }
    ScriptEditor& Engine() { return *control.findChild<ScriptEditor*>(); }
    QString Said() { return control.findChild<MessageBar*>()->Text(); }

    support::TestHome home;
    CodeMax control;
};

} // namespace

TEST_F(StatusLineTest, TellsWhereTheCaretIsAndHowTheTextWillBeSaved) {
    control.OpenFile(home.Put("a.lua", "\xF1o\tb\nc\n"));
    EXPECT_EQ(Shown(), u"Lín 1, Col 1 | Windows-1252 | LF | INS"_s);
    Engine().Select(0, 5); // of the caret, letters and not bytes
    Engine().setOverwriteMode(true);
    control.SelText(u"x\nñc"_s);
    Engine().Select(6, 4);
    EXPECT_EQ(Shown(), u"Lín 2, Col 2 | 2 sel. | modificado | Windows-1252 | LF | SOB"_s);
    Engine().zoomTo(2);
    control.SaveFile(u"C:\\a.lua"_s, false);
    EXPECT_EQ(Shown(), u"Lín 2, Col 2 | 2 sel. | Windows-1252 | LF | SOB | 120 %"_s);
    control.OpenFile(home.Put("b.lua", "\xEF\xBB\xBF\xE2\x86\x92\r\n"));
    Engine().GoTo(3);
    EXPECT_TRUE(Shown().startsWith(u"Lín 1, Col 2 | UTF-8 con marca | CR LF"_s));
    Line()->Fault(u"línea 3: falta 'end'"_s);
    EXPECT_TRUE(Shown().endsWith(u"1 error: línea 3: falta 'end'"_s));
    control.resize(420, 300); // too narrow for the sentence, not for the number
    EXPECT_TRUE(Shown().contains(u"| 1 error"_s)) << Shown().toStdString();
    control.resize(200, 300);
    EXPECT_TRUE(Shown().startsWith(u"Lín 1, Col 2 | 1 error"_s)) << Shown().toStdString();
}

TEST_F(StatusLineTest, TheEncodingChosenIsThatOfTheNextSaveAndWhatWontFitIsSaid) {
    using enum platform::TextEncoding;
    control.OpenFile(home.Put("a.lua", "\xF1\n"));
    Q_EMIT Line()->EncodingChosen(Utf16LEWithMark);
    control.SaveFile(u"C:\\a.lua"_s, false);
    EXPECT_EQ(home.Get("a.lua"), QByteArray("\xFF\xFE\xF1\0\n\0", 6));
    EXPECT_EQ(Said(), QString());
    control.SelText(u"x\n\U0001F600"_s);
    Q_EMIT Line()->EncodingChosen(CodePage);
    EXPECT_TRUE(Said().startsWith(u"«\U0001F600», en la línea 2, no existe en Windows-1252."_s));
    EXPECT_TRUE(control.findChild<MessageBar*>()->isVisible());
    QTest::keyClick(&Engine(), Qt::Key_Escape);
    EXPECT_FALSE(control.findChild<MessageBar*>()->isVisible());
    control.SaveFile(u"C:\\a.lua"_s, false);
    EXPECT_EQ(home.Get("a.lua"), "x\n\xF0\x9F\x98\x80\xC3\xB1\n");
    EXPECT_TRUE(Shown().contains(u"UTF-8"_s)); // as it was saved
    control.Text(u"Ã±"_s);
    Q_EMIT Line()->EncodingChosen(CodePage); // its bytes would be read as another text
    EXPECT_TRUE(Said().contains(u"se leería como UTF-8"_s));
}

TEST_F(StatusLineTest, LineEndsAreConvertedInOneStepWithTheCaretKept) {
    control.OpenFile(home.Put("a.lua", "ab\r\ncd\ref\n"));
    Engine().GoTo(5);
    const QSignalSpy changes(&control, &CodeMax::Change);
    Q_EMIT Line()->LineEndsChosen(core::LineEnd::Lf);
    Q_EMIT Line()->LineEndsChosen(core::LineEnd::Lf); // nothing left to do
    EXPECT_EQ(control.Text(), u"ab\ncd\nef\n"_s);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(Engine().Caret(), 4);
    QTest::keyClick(&Engine(), Qt::Key_Return);
    EXPECT_EQ(control.Text(), u"ab\nc\nd\nef\n"_s);
    control.Undo();
    control.Undo();
    EXPECT_EQ(control.Text(), u"ab\r\ncd\ref\n"_s);
}

TEST_F(StatusLineTest, SizeAndColorsAreTheSameInAllDocumentsAndInTheNextRun) {
    const auto dark = [](CodeMax& one) { return support::Colors(one).contains(0xFF1E1F26); };
    control.SetOption(kLineNumberOption, true);
    const int numbers = Engine().marginWidth(0);
    CodeMax other;
    other.FontSize(10);
    other.show();
    control.activateWindow(); // keys of commands go to the active window
    ASSERT_TRUE(QTest::qWaitForWindowActive(&control));
    for (int turn = 0; turn < 3; ++turn)
        QTest::keyClick(&Engine(), Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(Engine().marginWidth(0), numbers);
    QTest::keyClick(&Engine(), Qt::Key_Minus, Qt::ControlModifier);
    QTest::qWait(600);
    EXPECT_EQ(other.findChild<ScriptEditor*>()->ZoomPercent(), 120);
    SharedSettings().Keep(u"colores"_s, u"oscuro"_s);
    EXPECT_TRUE(dark(control) && dark(other));
    {
        CodeMax next;
        next.FontSize(10);
        next.SetColor(0, 0xFFFFFF); // the document's own colours wait
        EXPECT_EQ(next.findChild<ScriptEditor*>()->ZoomPercent(), 120);
        EXPECT_TRUE(dark(next));
        next.findChild<ScriptEditor*>()->zoomTo(0);
    } // closed at once: kept all the same
    EXPECT_EQ(Engine().ZoomPercent(), 100);
    SharedSettings().Keep(u"colores"_s, u"claro"_s);
    EXPECT_FALSE(dark(control));
    home.Put("programa/config.ini", "[editor]\r\nzoom=nada\r\ncolores=x\r\n");
    const CodeMax spoilt;
    EXPECT_EQ(spoilt.findChild<ScriptEditor*>()->ZoomPercent(), 100);
}
