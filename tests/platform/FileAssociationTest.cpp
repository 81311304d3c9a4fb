// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileAssociation.h"
#include "platform/Registry.h"
#include "support/TestHome.h"

#include <QImage>
#include <QProcess>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace platform;
namespace fs = std::filesystem;

namespace {

class FileAssociationTest : public testing::Test {
protected:
    FileAssociationTest() {
        RegSetValueA(HKEY_CLASSES_ROOT, u".xyz"_s, u"clase"_s);
        const RegistryKey key = RegCreateKeyA(HKEY_CLASSES_ROOT, u"clase"_s);
        RegSetValueA(key, QString(), u"Un <título>"_s);
        RegSetValueA(key, u"shell\\open\\command"_s, u"C:\\programa\\mi 'player'.exe %1"_s);
        RegSetValueA(key, u"DefaultIcon"_s, u"C:\\programa\\lua.ico"_s);
        home.Put("programa/lua.ico", support::Shipped("lua.ico"));
    }
    // What the desktop's own tool answers.
    QString Ask(const QString& tool, const QStringList& arguments) const {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished()) << tool.toStdString();
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }

    support::TestHome home;
    const std::string share = ".local/share/";
};

} // namespace

TEST_F(FileAssociationTest, TheDesktopKnowsTypeIconsAndProgram) {
    home.Put("programa/mi 'player'", "#!/bin/sh\necho \"$0\" \"$1\"\n");
    fs::permissions(home.Root() / "programa/mi 'player'", fs::perms::owner_all);
    home.Put(".config/mimeapps.list", "[Added Associations]\nimage/png=x.desktop;\n");
    PutToDesktop(u".xyz"_s);
    const QString file = QString::fromStdString(home.Root() / "a.xyz");
    home.Put("a.xyz", "hola");
    EXPECT_TRUE(Ask(u"gio"_s, {u"info"_s, u"-a"_s, u"standard::content-type"_s, file})
                    .endsWith(u"text/x-quillmark-xyz"_s));
    EXPECT_EQ(Ask(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"text/x-quillmark-xyz"_s}),
              u"quillmark-xyz.desktop"_s);
    EXPECT_EQ(Ask(u"desktop-file-validate"_s,
                  {QString::fromStdString(home.Root() / (share + "applications")) +
                   u"/quillmark-xyz.desktop"_s}),
              QString());
    EXPECT_EQ(home.Get(".config/mimeapps.list"),
              "[Added Associations]\nimage/png=x.desktop;\n[Default Applications]\n"
              "text/x-quillmark-xyz=quillmark-xyz.desktop\n");
    for (const int size : {16, 32, 48, 256}) {
        const std::string folder = std::to_string(size) + "x" + std::to_string(size);
        const QImage icon = QImage::fromData(
            home.Get(share + "icons/hicolor/" + folder + "/mimetypes/quillmark-xyz.png"), "png");
        EXPECT_EQ(icon.size(), QSize(size, size));
    }
    const QByteArray entry = home.Get(share + "applications/quillmark-xyz.desktop");
    EXPECT_TRUE(entry.contains("\nName=Mi 'player'\n"));
    EXPECT_TRUE(entry.contains("quillmark/bin/quillmark-xyz %f\n")); // no blank to stumble on
    const fs::path script = home.Root() / (share + "quillmark/bin/quillmark-xyz");
    EXPECT_EQ(Ask(QString::fromStdString(script), {u"a b"_s}),
              QString::fromStdString(home.Root() / "programa/mi 'player'") + u" a b"_s);
    const QByteArray list = home.Get(".config/mimeapps.list");
    PutToDesktop(u".xyz"_s);
    EXPECT_EQ(home.Get(".config/mimeapps.list"), list);
    EXPECT_EQ(home.Get(share + "applications/quillmark-xyz.desktop"), entry);
}

TEST_F(FileAssociationTest, ATypeThatTheDesktopHasIsUsed) {
    RegSetValueA(HKEY_CLASSES_ROOT, u".lua"_s, u"clase"_s);
    PutToDesktop(u".lua"_s);
    EXPECT_EQ(home.Get(".config/mimeapps.list"),
              "[Default Applications]\ntext/x-lua=quillmark-lua.desktop\n");
}

TEST_F(FileAssociationTest, WhatCannotBeWrittenIsLeftOut) {
    home.Put("programa/lua.ico", support::Shipped("lua.ico").chopped(1000));
    home.Put(share + "mime/packages", "a file");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", ""); // no tool of the desktop is there
    PutToDesktop(u".xyz"_s);
    qputenv("PATH", path);
    EXPECT_FALSE(home.Get(share + "applications/quillmark-xyz.desktop").isEmpty());
    EXPECT_FALSE(fs::exists(home.Root() / (share + "icons/hicolor/0x0")));
    fs::remove_all(home.Root() / ".config/mimeapps.list");
    fs::remove_all(home.Root() / (share + "applications"));
    home.Put(share + "applications", "a file");
    PutToDesktop(u".xyz"_s);
    EXPECT_FALSE(fs::exists(home.Root() / ".config/mimeapps.list")); // no default without an entry
    PutToDesktop(u".nada"_s);
}

TEST_F(FileAssociationTest, PathsOfAnEntryAreQuotedAsTheFormatWants) {
    const QByteArray entry =
        DesktopEntry("/a b/\"q\" $x `y` \\z 100%", u"línea\nñ"_s, u"icono"_s, u"text/x"_s);
    EXPECT_TRUE(entry.contains(R"(Exec="/a b/\\"q\\" \\$x \\`y\\` \\\\z 100%%" %f)"
                               "\n"));
    EXPECT_TRUE(entry.contains(R"(TryExec=/a b/"q" $x `y` \\z 100%)"
                               "\n"));
    EXPECT_TRUE(entry.contains("Name=línea\\nñ\n"));
    EXPECT_TRUE(DesktopEntry("/usr/bin/q", u"q"_s, {}, {}).contains("Exec=/usr/bin/q %f\n"));
}
