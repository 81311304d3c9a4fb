// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/view/ManualBrowser.h"

#include "documents/editor/lua/Calls.h"
#include "documents/editor/lua/Reference.h"

#include <QImage>
#include <QTextBlock>
#include <algorithm>

namespace documents {
namespace {

// In the manual some pictures stand beside a text.
constexpr double kPictureShare = 0.6; // of the page's width

QString Manual() {
    return QStringLiteral("qrc:/manual/manual.md");
}

// A page of a call is named by its place in the table.
QString CallScheme() {
    return QStringLiteral("llamada");
}

QByteArray CallPage(const QUrl& name) {
    const auto index = static_cast<size_t>(name.path().toUInt());
    return index < AllCalls().size() ? QByteArray::fromStdString(ReferenceEntry(*AllCalls()[index]))
                                     : QByteArray();
}

// As links name it: letters, digits and hyphens for blanks.
QString LinkName(const QString& heading) {
    QString name;
    for (const QChar character : heading.toLower()) {
        if (character.isLetterOrNumber() || character == u'-')
            name += character;
        else if (character == u' ')
            name += u'-';
    }
    return name;
}

// The Markdown's links lead to its headings by their text.
void NameHeadings(QTextDocument& page) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0)
            continue;
        QTextCharFormat name;
        name.setAnchor(true);
        name.setAnchorNames({LinkName(block.text())});
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(name);
    }
}

// A shown document is laid out anew for each piece of Markdown, but once for HTML.
QString HtmlOf(const QByteArray& markdown) {
    QTextDocument page;
    page.setMarkdown(QString::fromUtf8(markdown));
    NameHeadings(page);
    return page.toHtml();
}

QString HtmlOfScript(const QByteArray& script) {
    return QStringLiteral("<pre>%1</pre>").arg(QString::fromUtf8(script).toHtmlEscaped());
}

} // namespace

ManualBrowser::ManualBrowser(QWidget* parent) : QTextBrowser(parent) {
    setAccessibleName(QStringLiteral("Ayuda"));
    document()->setDefaultStyleSheet(
        QStringLiteral("table { border-collapse: collapse; } td, th { padding: 2px 6px; }"));
}

void ManualBrowser::ShowManual(const QString& heading) {
    QUrl url(Manual());
    url.setFragment(heading);
    setSource(url);
}

void ManualBrowser::ShowCall(const Call& call) {
    const auto found = std::find(AllCalls().begin(), AllCalls().end(), &call);
    QUrl url;
    url.setScheme(CallScheme());
    url.setPath(QString::number(found - AllCalls().begin()));
    setSource(url);
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
    if (name.scheme() == CallScheme())
        return HtmlOf(CallPage(name));
    if (source().resolved(name).scheme() != QStringLiteral("qrc"))
        return {};
    const QVariant bytes = QTextBrowser::loadResource(type, name);
    if (type == QTextDocument::ImageResource)
        return Picture(bytes);
    return name.path().endsWith(QStringLiteral(".md")) ? HtmlOf(bytes.toByteArray())
                                                       : HtmlOfScript(bytes.toByteArray());
}

QVariant ManualBrowser::Picture(const QVariant& bytes) const {
    const QImage image = QImage::fromData(bytes.toByteArray());
    const int room = std::max(static_cast<int>(viewport()->width() * kPictureShare), 1);
    return image.width() > room ? image.scaledToWidth(room, Qt::SmoothTransformation) : image;
}

void ManualBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType) {
    QTextBrowser::doSetSource(name, QTextDocument::HtmlResource);
}

} // namespace documents
