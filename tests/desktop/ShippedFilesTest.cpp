// What ships, and how it comes into the user's own folder at each start.
#include "desktop/ShippedFiles.h"

#include "desktop/QtText.h"
#include "unit/support/TestProgram.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

class ShippedFilesTest : public testing::Test {
protected:
    // A version of the program that ships these files and no others.
    void Ship(const QMap<QString, QByteArray> &files) const
    {
        QDir(program).removeRecursively();
        QByteArray list;
        for (auto file = files.begin(); file != files.end(); ++file) {
            Write(program + "/data/" + file.key(), file.value());
            list += QCryptographicHash::hash(file.value(), QCryptographicHash::Sha256).toHex() + "  " + file.key().toUtf8() + '\n';
        }
        Write(program + "/data.sha256", list);
    }
    void Start() const { PutShippedFiles(program, user); }
    static void Write(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void WriteOwn(const QString &name, const QByteArray &bytes) const { Write(user + "/" + name, bytes); }
    [[nodiscard]] QByteArray Own(const QString &name) const
    {
        QFile file(user + "/" + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    TempFolder folder;
    QString program = FromUtf8(folder.At("program"));
    QString user = FromUtf8(folder.At("user"));
};

TEST_F(ShippedFilesTest, TheFirstStartPutsAllOfThem)
{
    Ship({{"guide.txt", "one"}, {"samples/a.pcg", "two"}, {"samples/\u00e8.sty", "three"}});
    Start();
    EXPECT_EQ(Own("guide.txt"), "one");
    EXPECT_EQ(Own("samples/a.pcg"), "two");
    EXPECT_EQ(Own("samples/\u00e8.sty"), "three");
}

TEST_F(ShippedFilesTest, WhatTheUserHasNeverTouchedFollowsANewVersion)
{
    Ship({{"guide.txt", "one"}, {"table.txt", "one"}});
    Start();
    WriteOwn("table.txt", "mine");
    Ship({{"guide.txt", "two"}, {"table.txt", "two"}, {"new.txt", "two"}});
    Start();
    EXPECT_EQ(Own("guide.txt"), "two");
    EXPECT_EQ(Own("table.txt"), "mine");
    EXPECT_EQ(Own("new.txt"), "two");
    Ship({{"guide.txt", "three"}, {"table.txt", "three"}});
    Start();
    EXPECT_EQ(Own("guide.txt"), "three");
    EXPECT_EQ(Own("table.txt"), "mine");
}

TEST_F(ShippedFilesTest, WhatWasThereBeforeIsTheUsers)
{
    WriteOwn("table.txt", "mine");
    Ship({{"table.txt", "one"}});
    Start();
    Start();
    EXPECT_EQ(Own("table.txt"), "mine");
}

TEST_F(ShippedFilesTest, AMissingOrEmptyFileComesBackAndADeletedCompilationDoesNot)
{
    Ship({{"guide.txt", "one"}, {"table.txt", "one"}, {"c-Velluto.cmp", "one"}});
    Start();
    EXPECT_EQ(Own("c-Velluto.cmp"), "one");
    QFile::remove(user + "/guide.txt");
    QFile::remove(user + "/c-Velluto.cmp");
    WriteOwn("table.txt", "");
    Start();
    EXPECT_EQ(Own("guide.txt"), "one");
    EXPECT_EQ(Own("table.txt"), "one");
    EXPECT_EQ(Own("c-Velluto.cmp"), "none");
}

TEST_F(ShippedFilesTest, ADamagedRecordCostsNoFile)
{
    Ship({{"table.txt", "one"}});
    Start();
    WriteOwn("table.txt", "mine");
    WriteOwn(".velluto-shipped", "no record\n\n0123");
    Ship({{"table.txt", "two"}});
    Start();
    EXPECT_EQ(Own("table.txt"), "mine");
}

TEST_F(ShippedFilesTest, WithoutAListNothingIsPut)
{
    Write(program + "/data/table.txt", "one");
    Start();
    EXPECT_EQ(Own("table.txt"), "none");
}

} // namespace
} // namespace velluto::test
