// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/HelpPane.h"
#include "documents/editor/engine/CommandSet.h"
#include "documents/editor/engine/ScriptEditor.h"
#include "documents/editor/view/ManualBrowser.h"
#include "support/TestHome.h"

#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace documents;

namespace {

class HelpPaneTest : public testing::Test {
protected:
    HelpPaneTest() {
        control.resize(700, 600);
        editor.resize(700, 300);
        pane.move(0, 300);
        pane.resize(700, 300);
        control.show();
    }
    void ShowCallAt(const QByteArray& before, const QByteArray& behind) {
        editor.Load(before + behind);
        editor.GoTo(before.size());
        pane.ShowCall();
    }
    QString FirstLine() { return Browser().document()->firstBlock().text(); }
    // What is at the top of the shown part.
    QString Top() { return Browser().cursorForPosition({2, 12}).block().text(); }
    ManualBrowser& Browser() { return *pane.findChild<ManualBrowser*>(); }

    support::TestHome home;
    QWidget control;
    ScriptEditor editor{&control};
    CommandSet commands{editor, control};
    HelpPane pane{editor, commands, &control};
};

} // namespace

TEST_F(HelpPaneTest, TellsOfTheCallAtTheCaretOrAroundIt) {
    ShowCallAt("screen:pri", "nt(1)");
    EXPECT_EQ(FirstLine(), u"imagen:print(x, y, texto, [color])"_s);
    ShowCallAt("screen:fillRect(1, dos", "");
    EXPECT_EQ(FirstLine(), u"imagen:fillRect(x, y, ancho, alto, [color])"_s);
    ShowCallAt("local x", " = 1");
    EXPECT_EQ(FirstLine(), u"Manual de Quillmark"_s);
    Browser().backward();
    EXPECT_EQ(FirstLine(), u"imagen:fillRect(x, y, ancho, alto, [color])"_s);
    QTest::keyClick(&Browser(), Qt::Key_Escape);
    EXPECT_FALSE(pane.isVisible());
}

TEST_F(HelpPaneTest, HasAManualWhoseLinksAndPicturesAreThere) {
    pane.ShowKeys();
    EXPECT_EQ(Top(), u"Todas las teclas"_s);
    QSet<QString> links;
    int pictures = 0;
    const QTextDocument& manual = *Browser().document();
    for (QTextBlock block = manual.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            links.insert(format.anchorHref());
            if (!format.isImageFormat())
                continue;
            ++pictures;
            const QUrl name(format.toImageFormat().name());
            const QVariant image = Browser().loadResource(QTextDocument::ImageResource, name);
            EXPECT_FALSE(image.value<QImage>().isNull()) << name.toString().toStdString();
        }
    }
    EXPECT_GT(pictures, 20);
    links.remove(QString());
    EXPECT_GT(links.size(), 18);
    for (const QString& link : links) {
        pane.ShowManual();
        Browser().setSource(Browser().source().resolved(QUrl(link)));
        if (link.startsWith(u'#'))
            EXPECT_GT(Browser().verticalScrollBar()->value(), 0) << link.toStdString();
        else
            EXPECT_FALSE(Browser().toPlainText().isEmpty()) << link.toStdString();
    }
}

TEST_F(HelpPaneTest, LoadsNothingFromOutsideTheProgram) {
    pane.ShowManual();
    home.Put("fuera.html", "fuera");
    const QString outside = QString::fromStdString((home.Root() / "fuera.html").string());
    for (const QString& name : {u"file://"_s + outside, outside, u"../../"_s + outside}) {
        const QVariant page = Browser().loadResource(QTextDocument::HtmlResource, QUrl(name));
        EXPECT_FALSE(page.toString().contains(u"fuera")) << name.toStdString();
    }
}
