// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/CheckMarks.h"
#include "documents/EditorFixture.h"
#include "documents/editor/engine/Layers.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;
using documents::CheckMarks;

namespace {

class CheckMarksTest : public EditorFixture {
protected:
    CheckMarksTest() {
        QObject::connect(&marks, &CheckMarks::FaultChanged, &window,
                         [this](const QString& text) { told.append(text); });
    }
    // The script with what is underlined in <>, after each marked line's number and kind.
    std::string Marked() const {
        std::string all;
        for (int line = 0; line < editor.lines(); ++line) {
            const long markers = editor.SendScintilla(QsciScintilla::SCI_MARKERGET, line);
            if ((markers & 1 << documents::kFaultMarker) != 0)
                all += "!" + std::to_string(line + 1) + " ";
            if ((markers & 1 << documents::kOpenerMarker) != 0)
                all += "^" + std::to_string(line + 1) + " ";
        }
        bool isUnder = false;
        for (qsizetype at = 0; at <= editor.Length(); ++at) {
            const bool is =
                editor.SendScintilla(QsciScintilla::SCI_INDICATORVALUEAT,
                                     static_cast<unsigned long>(documents::kFaultIndicator),
                                     static_cast<long>(at)) != 0;
            if (is != isUnder)
                all += is ? "<" : ">";
            isUnder = is;
            all += editor.Range(at, std::min(at + 1, editor.Length())).toStdString();
        }
        return all;
    }
    void Hover(int x) { // in the third line
        const QPoint place(x, editor.textHeight(0) * 2 + 5);
        QHelpEvent event(QEvent::ToolTip, place, editor.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(editor.viewport(), &event);
    }
    void Type(const char* text) { QTest::keyClicks(&editor, QString::fromUtf8(text)); }

    CheckMarks marks{editor, commands, &window};
    QStringList told;
};

constexpr int kPause = 700; // ms, longer than the check waits

} // namespace

TEST_F(CheckMarksTest, AFaultIsMarkedAndTheTextAndItsHistoryStay) {
    Put("x()\nif x = 1 then end|");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    EXPECT_EQ(told.last(), u"línea 2: Falta 'then' antes de '='. Para comparar se escribe ==."_s);
    EXPECT_EQ(Marked(), "!2 x()\nif x <=> 1 then end");
    EXPECT_FALSE(editor.isModified());
    EXPECT_FALSE(editor.isUndoAvailable());
    EXPECT_EQ(edits, 0);
    editor.GoTo(9);
    Type("=");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.last().isEmpty(); }));
    EXPECT_EQ(Marked(), "x()\nif x == 1 then end");
    EXPECT_EQ(edits, 1);
    editor.undo();
    EXPECT_EQ(editor.Bytes(), "x()\nif x = 1 then end");
}

TEST_F(CheckMarksTest, WhatIsBeingChosenInAListIsNoFaultYet) {
    Put("x|");
    Type(" = nave:");
    editor.SendScintilla(QsciScintilla::SCI_AUTOCSHOW, 0UL, "blit clear");
    QTest::qWait(kPause);
    EXPECT_TRUE(told.empty());
    editor.cancelList();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
}

TEST_F(CheckMarksTest, BothLinesOfAMissingEndAreMarkedAndF8GoesRound) {
    Put("x()\n  if y then\n  z()\n|");
    Press("F8");
    EXPECT_EQ(Marked(), "^2 !3 x()\n  if y then\n  z(<)>\n");
    EXPECT_EQ(Shown(), "x()\n  |if y then\n  z()\n");
    Press("F8");
    EXPECT_EQ(Shown(), "x()\n  if y then\n  z(|)\n");
    EXPECT_TRUE(QToolTip::text().contains(u"Falta 'end' para cerrar el 'if' de la línea 2."_s));
    Press("F8 Shift+F8");
    EXPECT_EQ(Shown(), "x()\n  if y then\n  z(|)\n");
    Put("|x()");
    EXPECT_EQ(Marked(), "x()");
    EXPECT_EQ(told.last(), QString());
    Press("F8 Shift+F8");
    EXPECT_EQ(Shown(), "|x()");
}

TEST_F(CheckMarksTest, AWordThatIsBeingTypedIsNoFaultYet) {
    Put("x()\n  |\ny()");
    Type("pri");
    QTest::qWait(kPause);
    EXPECT_EQ(Marked(), "x()\n  pri\ny()");
    editor.GoTo(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    EXPECT_EQ(Marked(), "!2 x()\n  <pri>\ny()");
    editor.GoTo(9); // typing on leaves what is known
    Type("nt");
    QTest::qWait(kPause);
    EXPECT_EQ(told.size(), 1);
    Type("()");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told.last().isEmpty(); }));
}

TEST_F(CheckMarksTest, AScriptThatIsTooLargeOrEmptyHasNoMarks) {
    const QByteArray large = QByteArray("x = 1 -- y\n").repeated(40000);
    for (const QByteArray& text : {large + "x = = 2|", QByteArray("|")}) {
        Put(text);
        Press("F8");
        EXPECT_TRUE(told.empty());
        EXPECT_FALSE(QToolTip::text().isEmpty());
    }
}

TEST_F(CheckMarksTest, TheMouseIsToldTheFaultAndAClickBesideTheLineGoesThere) {
    editor.ShowLeftMargin(true);
    editor.ShowLineNumbers(true);
    Put("x()\n\ny = = 2\n|");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !told.empty(); }));
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {},
                      QPoint(3, editor.textHeight(0) * 2 + 5));
    EXPECT_EQ(Shown(), "x()\n\ny = |= 2\n");
    EXPECT_TRUE(QToolTip::text().contains(u"'=' no puede ir aquí."_s));
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    Hover(editor.marginWidth(0) + 150);
    EXPECT_FALSE(QToolTip::isVisible());
    Hover(static_cast<int>(editor.SendScintilla(QsciScintilla::SCI_POINTXFROMPOSITION, 0, 9)) + 6);
    EXPECT_TRUE(QToolTip::text().contains(u"'=' no puede ir aquí."_s));
    QTest::mouseClick(editor.viewport(), Qt::LeftButton, {}, QPoint(3, 5));
    EXPECT_EQ(Shown().substr(0, 6), "^x()\n|");
}
