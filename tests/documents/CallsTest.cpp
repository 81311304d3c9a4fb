// SPDX-License-Identifier: GPL-3.0-or-later
#include "documents/editor/lua/Calls.h"

#include "assist/Catalogo.h"
#include "documents/editor/lua/Reference.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace documents {
namespace {

// The call that a piece of a script means, `receiver.name` or `receiver:name`.
const Call* Meant(const QString& receiver, const QString& link, const QString& name) {
    const std::string callName = name.toStdString();
    const QString capital = receiver.left(1).toUpper() + receiver.mid(1);
    const Library* library = FindLibrary(receiver.toStdString());
    if (!library)
        library = FindLibrary(capital.toStdString());
    if (!library)
        return nullptr;
    const Call* method = FindMethod(library->kind, callName);
    return link == u":" && method ? method : FindCall(library->name, callName);
}

TEST(CallsTest, HoldAllOfTheCatalogue) {
    static const QRegularExpression kWritten(
        QStringLiteral("(\\w+)(?:\\.read\\(\\))?([.:])(\\w+)\\(([^()]*)\\)+$"));
    int count = 0;
    for (const assist::EntradaCatalogo& entry : assist::Catalogo()) {
        const QString text = entry.Codigo();
        const auto found = kWritten.match(text);
        if (!found.hasMatch())
            continue;
        ++count;
        const Call* call = Meant(found.captured(1), found.captured(2), found.captured(3));
        ASSERT_NE(call, nullptr) << text.toStdString();
        EXPECT_EQ(call->form == CallForm::Method,
                  found.captured(2) == u":" && call->form != CallForm::Either)
            << text.toStdString();
        const QString arguments = found.captured(4).trimmed();
        const qsizetype given = arguments.isEmpty() ? 0 : arguments.count(u',') + 1;
        EXPECT_LE(given, static_cast<qsizetype>(call->Parameters().size())) << text.toStdString();
    }
    EXPECT_EQ(count, 90); // 95 entries, of which five are words of the language
}

TEST(CallsTest, TellHowTheyAreWrittenAndWhatTheyGive) {
    const auto written = [](const char* library, const char* name, bool asMethod = false) {
        return SignatureOf(*FindCall(library, name), asMethod).text;
    };
    EXPECT_EQ(written("Image", "pixel"), "imagen:pixel(x, y, [color])");
    EXPECT_EQ(written("screen", "flip"), "screen.flip()");
    EXPECT_EQ(written("", "print"), "print([...])");
    EXPECT_EQ(written("math", "pi"), "math.pi");
    EXPECT_EQ(written("string", "rep"), "string.rep(texto, veces)");
    EXPECT_EQ(written("string", "rep", true), "texto:rep(veces)");
    const Signature pixel = SignatureOf(*FindCall("Image", "pixel"));
    ASSERT_EQ(pixel.parameters.size(), 3U);
    const auto [from, to] = pixel.parameters[2];
    EXPECT_EQ(pixel.text.substr(from, to - from), "color");

    EXPECT_EQ(FindCall("Image", "load")->result, ValueKind::Image);
    EXPECT_EQ(FindMethod(ValueKind::Any, "play")->result, ValueKind::Voice);
    EXPECT_EQ(FindMethod(ValueKind::Image, "play"), nullptr);
    EXPECT_EQ(CallsOf("Sound").size(), 1U);
    EXPECT_GT(MethodsOf(ValueKind::Any).size(), MethodsOf(ValueKind::Image).size());
}

TEST(CallsTest, FillTheirChapterOfTheManual) {
    QFile file(QStringLiteral(MANUAL));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray manual = file.readAll();
    const auto marked = QByteArrayLiteral("\n<!-- llamadas -->\n");
    const qsizetype from = manual.indexOf(marked) + marked.size();
    const qsizetype to = manual.indexOf("<!-- fin de las llamadas -->");
    EXPECT_EQ(manual.mid(from, to - from).toStdString(), ReferenceChapter())
        << "scripts/reference writes it";
}

} // namespace
} // namespace documents
