#include "shell/ShellNamespace.h"

#include "support/TempFolder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// root/{b/{b2}, A/{a1/{deep}, a2}, c, .hidden/, file.txt}
struct NamespaceFixture : ::testing::Test {
    TempFolder dir;
    void SetUp() override {
        QDir root(dir.path());
        for (const char* sub : {"b/b2", "A/a1/deep", "A/a2", "c", ".hidden"})
            ASSERT_TRUE(root.mkpath(QString::fromLatin1(sub)));
        dir.write(u"file.txt"_s, "x");
    }
    QStringList shownNames(const ShellNamespace& ns) const {
        QStringList names;
        for (int i = 0; i < ns.count(); ++i)
            names.append(QString(ns.node(i).depth, u'.') + ns.node(i).displayName);
        return names;
    }
};

} // namespace

TEST_F(NamespaceFixture, ExpandedChildrenStandRightBehindTheirNodeInPreOrder) {
    ShellNamespace ns(dir.path());
    EXPECT_EQ(ns.count(), 1);
    EXPECT_EQ(ns.expand(0), 3); // A, b, c; the hidden folder and the file are not nodes
    // Only visible sub-folders make children: A and b have some, c none.
    EXPECT_EQ((QList<bool>{ns.hasChildren(1), ns.hasChildren(2), ns.hasChildren(3)}),
              (QList<bool>{true, true, false}));
    EXPECT_EQ(ns.expand(1), 2); // A/a1, A/a2
    EXPECT_EQ(ns.expand(2), 1); // A/a1/deep
    EXPECT_EQ(shownNames(ns).mid(1),
              (QStringList{u".A"_s, u"..a1"_s, u"...deep"_s, u"..a2"_s, u".b"_s, u".c"_s}));
    EXPECT_EQ(ns.node(5).path, dir.file(u"b"_s));
    EXPECT_EQ(ns.node(5).parent, &ns.node(0));
    EXPECT_EQ(ns.expand(1), 0); // expanding twice adds nothing
}

TEST_F(NamespaceFixture, CollapseRemovesTheWholeBranchAndExpandRestoresOneLevel) {
    ShellNamespace ns(dir.path());
    ns.expand(0);
    ns.expand(1);
    ns.expand(2);
    EXPECT_EQ(ns.collapse(1), 3);
    EXPECT_EQ(ns.count(), 4);
    EXPECT_FALSE(ns.node(1).expanded);
    EXPECT_EQ(ns.expand(1), 2);
    EXPECT_FALSE(ns.node(2).expanded);
    EXPECT_EQ(ns.count(), 6);
}

TEST_F(NamespaceFixture, RevealExpandsTheAncestorsOfAFolder) {
    ShellNamespace ns(dir.path());
    const int index = ns.reveal(dir.file(u"A/a1/deep"_s));
    ASSERT_GE(index, 0);
    EXPECT_EQ(ns.node(index).displayName, u"deep"_s);
    EXPECT_EQ(ns.indexOfPath(dir.file(u"A/a1"_s)), index - 1);
    EXPECT_EQ(ns.reveal(dir.path()), 0);
    EXPECT_EQ(ns.reveal(dir.file(u"missing"_s)), -1);
    EXPECT_EQ(ns.reveal(u"/somewhere/else"_s), -1);
}

TEST_F(NamespaceFixture, UnreadableOrVanishedFoldersHaveNoChildren) {
    ShellNamespace ns(dir.path());
    ns.expand(0);
    const int b = ns.indexOfPath(dir.file(u"b"_s));
    ASSERT_TRUE(QDir(dir.file(u"b"_s)).removeRecursively());
    EXPECT_EQ(ns.expand(b), 0);
    EXPECT_FALSE(ns.hasChildren(b));
    ns.forget(0);
    EXPECT_EQ(ns.count(), 1);
    EXPECT_EQ(ns.expand(0), 2);
}

TEST_F(NamespaceFixture, NamesWithAnyBytesAreListed) {
    const QByteArray odd = QFile::encodeName(dir.path()) + "/bad\xff\xfe name";
    ASSERT_EQ(::mkdir(odd.constData(), 0755), 0);
    ShellNamespace ns(dir.path());
    EXPECT_EQ(ns.expand(0), 4);
    for (int i = 0; i < ns.count(); ++i)
        EXPECT_FALSE(ns.node(i).displayName.isEmpty());
}

TEST_F(NamespaceFixture, MountedNetworkFoldersComeUnderTheNetworkNodeAfterTheRootsFolders) {
    TempFolder net;
    ASSERT_TRUE(QDir(net.path()).mkpath(u"zeta/inner"_s));
    ASSERT_TRUE(QDir(net.path()).mkpath(u"alpha"_s));
    ShellNamespace ns(dir.path());
    ns.setNetworkMounts({net.file(u"zeta"_s), net.file(u"alpha"_s)});
    EXPECT_EQ(ns.expand(0), 4);
    const ShellNamespace::Node& network = ns.node(4);
    EXPECT_TRUE(network.isNetwork);
    EXPECT_FALSE(network.isFileSystem);
    EXPECT_TRUE(network.path.isEmpty());
    EXPECT_EQ(network.displayName, ShellNamespace::networkName());
    EXPECT_TRUE(ns.hasChildren(4));
    EXPECT_EQ(ns.expand(4), 2);
    EXPECT_EQ(shownNames(ns).mid(4), (QStringList{u".Network"_s, u"..alpha"_s, u"..zeta"_s}));
    EXPECT_EQ(ns.node(6).path, net.file(u"zeta"_s));
    EXPECT_TRUE(ns.node(6).isFileSystem);
    EXPECT_EQ(ns.expand(6), 1);

    // Without network file systems there is no network node.
    ns.setNetworkMounts({});
    ns.forget(0);
    EXPECT_EQ(ns.expand(0), 3);
    EXPECT_EQ(ns.indexOfPath(QString()), -1);
}

TEST_F(NamespaceFixture, ARootWithOnlyTheNetworkNodeHasChildren) {
    TempFolder empty;
    ShellNamespace ns(empty.path());
    EXPECT_FALSE(ShellNamespace(empty.path()).hasChildren(0));
    ns.setNetworkMounts({dir.path()});
    EXPECT_TRUE(ns.hasChildren(0));
    EXPECT_EQ(ns.expand(0), 1);
    EXPECT_TRUE(ns.node(1).isNetwork);
}

TEST(NetworkMountsTest, OnlyNetworkFileSystemsOfTheMountTableAreTaken) {
    const QByteArray table = "/dev/sda1 / ext4 rw,relatime 0 0\n"
                             "proc /proc proc rw 0 0\n"
                             "server:/export /mnt/nfs nfs4 rw,vers=4.2 0 0\n"
                             "//nas/Public\\040Share /mnt/my\\040share cifs rw 0 0\n"
                             "user@host:/home /home/me/remote fuse.sshfs rw 0 0\n"
                             "server:/export /mnt/nfs nfs4 rw,vers=4.2 0 0\n"
                             "tmpfs /run tmpfs rw 0 0\n";
    EXPECT_EQ(ShellNamespace::networkMountPoints(table),
              (QStringList{u"/mnt/nfs"_s, u"/mnt/my share"_s, u"/home/me/remote"_s}));
    EXPECT_TRUE(ShellNamespace::networkMountPoints(QByteArray()).isEmpty());
}
