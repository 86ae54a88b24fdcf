#include "help/HelpTopics.h"
#include "help/QuickTips.h"
#include "help/SystemInfoTool.h"
#include "support/TempFolder.h"

#include <QFile>
#include <QStringDecoder>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString kResources = QStringLiteral(QUORVANE_RESOURCES);

// Every window of the program, by the name its help page carries.
const QStringList kWindows = {
    u"Quorvane1"_s, u"FindFile1"_s, u"QuikPict1"_s,     u"Rename1"_s,   u"MoveFile1"_s,
    u"MDIForm1"_s,  u"ChildFrm1"_s, u"PictureDialog"_s, u"NewSize1"_s,  u"AddText1"_s,
    u"AddShape1"_s, u"Login"_s,     u"GrpMaint"_s,      u"GrpFlem1"_s,  u"GrpBrow1"_s,
    u"GrpBatch1"_s, u"GrpFind1"_s,  u"GrpFind2"_s,      u"GrpClear1"_s, u"GrpRepair1"_s,
    u"ThumBrow1"_s, u"ProPert1"_s,  u"AudioVideo1"_s,   u"PrntFrm1"_s,  u"SendFile1"_s,
    u"MailAddr1"_s, u"MailLogon"_s, u"SetOptns1"_s,     u"SetColor1"_s, u"SetFoldr1"_s,
    u"QuikTip1"_s,  u"About1"_s,    u"HelpWindow"_s,
};

QStringList titles(const QList<const HelpTopics::Topic*>& topics) {
    QStringList out;
    for (const HelpTopics::Topic* topic : topics)
        out.append(topic->title);
    return out;
}

} // namespace

TEST(HelpTopicsTest, APageGivesItsTitleAndItsTextWithoutMarkup) {
    const struct {
        QString html;
        QString title;
        QString text;
    } cases[] = {
        {u"<html><head><title>Find &amp; Show</title><style>p { color: red }</style></head>"
         "<body><p>One <b>two</b>&nbsp;three &#233;t&#xE9;</p><script>x()</script>"
         "<!-- not shown --></body></html>"_s,
         u"Find & Show"_s, u"One two three été"_s},
        {u"<TITLE>\n  Spread\n  over </TITLE>"_s, u"Spread over"_s, u"Spread over"_s},
        {u"<body>no title</body>"_s, QString(), u"no title"_s},
        {u"<p>&bogus; &#0; &#xD800; &lt;tag&gt;</p>"_s, QString(),
         u"&bogus; &#0; &#xD800; <tag>"_s},
        {u"<title>unclosed"_s, QString(), u"unclosed"_s},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(HelpTopics::titleOf(c.html), c.title) << c.html.toStdString();
        EXPECT_EQ(HelpTopics::textOf(c.html), c.text) << c.html.toStdString();
    }
    EXPECT_EQ(HelpTopics::wordsOf(u"Re-size 2 PICTURES, vite été!"_s),
              (QStringList{u"re"_s, u"size"_s, u"2"_s, u"pictures"_s, u"vite"_s, u"été"_s}));
    EXPECT_EQ(HelpTopics::linksOf(u"<a href=\"b.html#x\">B</a> <A HREF='a.html'>A</A> "
                                  "<a href=\"#top\">top</a> <a href=\"http://x.org/\">x</a> "
                                  "<a name=\"n\" href=\"b.html\">again</a>"_s),
              (QStringList{u"b.html"_s, u"a.html"_s}));
}

TEST(HelpTopicsTest, TheSearchFindsTopicsByWordsAndStartsOfWordsTitlesFirst) {
    TempFolder dir;
    dir.write(u"index.html"_s, "<title>Contents</title><a href=\"b.html\">B</a>"
                               "<a href=\"a.html\">A</a>");
    dir.write(u"a.html"_s, "<title>Thumbnails</title><body>Browse pictures</body>");
    dir.write(u"b.html"_s,
              "<title>Printing</title><body>Print thumbnails of pictures, pictures.</body>");
    dir.write(u"c.html"_s, "<body>No title here</body>");
    dir.write(u"notes.txt"_s, "thumbnails");
    const HelpTopics topics = HelpTopics::load(dir.path());

    QStringList order;
    for (const HelpTopics::Topic& topic : topics.topics())
        order.append(topic.name);
    EXPECT_EQ(order, (QStringList{u"index"_s, u"b"_s, u"a"_s, u"c"_s}));
    ASSERT_TRUE(topics.find(u"A"_s));
    EXPECT_EQ(topics.find(u"A"_s)->fileName, u"a.html"_s);
    EXPECT_EQ(topics.find(u"c"_s)->title, u"c"_s);
    EXPECT_FALSE(topics.find(u"notes"_s));

    const struct {
        QString query;
        QStringList found;
    } cases[] = {
        {u"THUMB"_s, {u"Thumbnails"_s, u"Printing"_s}},
        {u"pictures print"_s, {u"Printing"_s}},
        {u"picture"_s, {u"Printing"_s, u"Thumbnails"_s}},
        {u"title"_s, {u"c"_s}},
        {u"zebra"_s, {}},
        {u"thumbnails zebra"_s, {}},
        {QString(), {}},
        {u" ,;- "_s, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(titles(topics.search(c.query)), c.found) << c.query.toStdString();
}

TEST(HelpTopicsTest, EveryWindowHasATopicInTheContentsAndEveryLinkLeadsToAPage) {
    const HelpTopics topics = HelpTopics::load(kResources + u"/Help"_s);
    const HelpTopics::Topic* contents = topics.find(u"index"_s);
    ASSERT_TRUE(contents);
    QFile index(kResources + u"/Help/index.html"_s);
    ASSERT_TRUE(index.open(QIODevice::ReadOnly));
    const QStringList contentsLinks = HelpTopics::linksOf(QString::fromUtf8(index.readAll()));
    for (const QString& name : kWindows) {
        const HelpTopics::Topic* topic = topics.find(name);
        ASSERT_TRUE(topic) << name.toStdString();
        EXPECT_EQ(topic->name, name);
        EXPECT_FALSE(topic->title.isEmpty());
        EXPECT_NE(topic->title, name) << "a page without its own title";
        EXPECT_GT(topic->text.size(), 300) << name.toStdString();
        EXPECT_TRUE(topic->text.contains(u"F1"_s)) << name.toStdString();
        EXPECT_TRUE(contentsLinks.contains(name + u".html"_s)) << name.toStdString();
    }
    EXPECT_EQ(topics.topics().size(), kWindows.size() + 1);
    for (const HelpTopics::Topic& topic : topics.topics()) {
        QFile page(kResources + u"/Help/"_s + topic.fileName);
        ASSERT_TRUE(page.open(QIODevice::ReadOnly));
        const QByteArray bytes = page.readAll();
        auto utf8 = QStringDecoder(QStringDecoder::Utf8);
        const QString html = utf8(bytes);
        EXPECT_FALSE(utf8.hasError()) << topic.fileName.toStdString();
        const QStringList links = HelpTopics::linksOf(html);
        if (topic.name != u"index"_s) {
            EXPECT_TRUE(links.contains(u"index.html"_s)) << topic.fileName.toStdString();
        }
        for (const QString& link : links) {
            EXPECT_TRUE(QFile::exists(kResources + u"/Help/"_s + link))
                << topic.fileName.toStdString() << " -> " << link.toStdString();
        }
    }
}

TEST(QuickTipsTest, TheDeliveredTipsAreThirtyLinesOrMoreOfUtf8EndedByCrLf) {
    const QString path = kResources + u"/"_s + QuickTips::fileName();
    const QuickTips::Loaded loaded = QuickTips::read(path);
    ASSERT_TRUE(loaded.loaded);
    EXPECT_GE(loaded.tips.size(), 30);
    for (const QString& tip : loaded.tips) {
        EXPECT_GE(tip.size(), 30) << tip.toStdString();
        EXPECT_FALSE(tip.contains(u'\r'));
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_EQ(bytes.count("\r\n"), loaded.tips.size());
    EXPECT_EQ(bytes.count('\n'), loaded.tips.size());
    auto utf8 = QStringDecoder(QStringDecoder::Utf8);
    (void)QString(utf8(bytes));
    EXPECT_FALSE(utf8.hasError());
}

TEST(QuickTipsTest, TheChoiceCountsFromOneAndFallsBackToTheFirst) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double random;
        qsizetype count;
        qsizetype tip;
    } cases[] = {
        {0.0, 1, 1}, {0.999, 1, 1}, {0.0, 5, 1},  {0.5, 5, 3}, {0.9999, 5, 5},        {1.0, 5, 1},
        {0.0, 0, 1}, {0.7, 0, 1},   {-0.1, 5, 1}, {nan, 5, 1}, {0.25, 100000, 25001},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QuickTips::choose(c.random, c.count), c.tip) << c.random << " " << c.count;
}

TEST(QuickTipsTest, AnyFileIsReadLineByLineAndOnlyAMissingOneFails) {
    TempFolder dir;
    QByteArray many;
    for (int i = 0; i < 100000; ++i)
        many += "Tip number " + QByteArray::number(i) + "\r\n";
    const struct {
        const char* name;
        QByteArray bytes;
        qsizetype count;
        QString first;
    } cases[] = {
        {"empty", QByteArray(), 0, QString()},
        {"mixed ends", "a\r\nb\nc", 3, u"a"_s},
        {"empty lines", "\r\n\r\n", 2, QString()},
        {"not utf-8", "\xff\xfe ok\r\n\xe9t\xe9\r\n", 2, u"\ufffd\ufffd ok"_s},
        {"carriage returns alone", "a\rb\rc", 1, u"a\rb\rc"_s},
        {"nul", QByteArray("x\0y\n", 4), 1, QString(u"x\0y"_s)},
        {"many", many, 100000, u"Tip number 0"_s},
    };
    for (const auto& c : cases) {
        dir.write(u"tips.txt"_s, c.bytes);
        const QuickTips::Loaded loaded = QuickTips::read(dir.file(u"tips.txt"_s));
        EXPECT_TRUE(loaded.loaded) << c.name;
        EXPECT_EQ(loaded.tips.size(), c.count) << c.name;
        EXPECT_EQ(loaded.tips.value(0), c.first) << c.name;
    }
    EXPECT_FALSE(QuickTips::read(QString()).loaded);
    EXPECT_FALSE(QuickTips::read(dir.file(u"missing.txt"_s)).loaded);
    EXPECT_FALSE(QuickTips::read(dir.path()).loaded);
}

TEST(SystemInfoToolTest, TheFirstProgramOfTheListFoundOnThePathIsTaken) {
    TempFolder dir;
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(dir.path()));
    EXPECT_EQ(SystemInfoTool::find(), QString());
    for (const QString& name : {u"lxtask"_s, u"kinfocenter"_s, u"not-a-tool"_s}) {
        dir.write(name, "#!/bin/sh\nexit 0\n");
        QFile::setPermissions(dir.file(name), QFile::ReadOwner | QFile::ExeOwner);
    }
    EXPECT_EQ(SystemInfoTool::find(), dir.file(u"kinfocenter"_s));
    EXPECT_EQ(SystemInfoTool::find({u"not-a-tool"_s}), dir.file(u"not-a-tool"_s));
    qputenv("PATH", oldPath);
    EXPECT_FALSE(SystemInfoTool::start(QString()));
    EXPECT_FALSE(SystemInfoTool::start(dir.file(u"missing"_s)));
}
