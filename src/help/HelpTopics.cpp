#include "help/HelpTopics.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <climits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kOptions =
    QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption;

QString decodeEntities(const QString& text) {
    static const QRegularExpression entity(
        u"&(#[0-9]{1,7}|#[xX][0-9a-fA-F]{1,6}|[a-zA-Z]{2,8});"_s);
    static const QHash<QString, QString> named = {
        {u"amp"_s, u"&"_s},        {u"lt"_s, u"<"_s},         {u"gt"_s, u">"_s},
        {u"quot"_s, u"\""_s},      {u"apos"_s, u"'"_s},       {u"nbsp"_s, u" "_s},
        {u"ndash"_s, u"\u2013"_s}, {u"mdash"_s, u"\u2014"_s}, {u"hellip"_s, u"\u2026"_s},
        {u"rarr"_s, u"\u2192"_s},  {u"larr"_s, u"\u2190"_s},  {u"copy"_s, u"\u00a9"_s},
    };
    QString out;
    out.reserve(text.size());
    qsizetype from = 0;
    auto it = entity.globalMatch(text);
    while (it.hasNext()) {
        const QRegularExpressionMatch m = it.next();
        out += QStringView(text).mid(from, m.capturedStart() - from);
        from = m.capturedEnd();
        const QString body = m.captured(1);
        if (body.startsWith(u'#')) {
            bool ok = false;
            const bool hex = body.size() > 1 && (body[1] == u'x' || body[1] == u'X');
            const uint code = hex ? body.mid(2).toUInt(&ok, 16) : body.mid(1).toUInt(&ok, 10);
            // Code points that are not characters stay as written.
            if (ok && code > 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF)) {
                const char32_t c = code;
                out += QString::fromUcs4(&c, 1);
                continue;
            }
        } else if (const auto found = named.constFind(body); found != named.constEnd()) {
            out += *found;
            continue;
        }
        out += m.captured(0);
    }
    out += QStringView(text).mid(from);
    return out;
}

QString simplified(const QString& text) {
    return decodeEntities(text).simplified();
}

QList<std::pair<QString, int>> countedWords(const QString& text) {
    QHash<QString, int> counts;
    for (const QString& word : HelpTopics::wordsOf(text))
        ++counts[word];
    QList<std::pair<QString, int>> words;
    words.reserve(counts.size());
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        words.append({it.key(), it.value()});
    std::sort(words.begin(), words.end());
    return words;
}

// How often words that start with `prefix` stand in a sorted word list.
int prefixCount(const QList<std::pair<QString, int>>& words, const QString& prefix) {
    auto it = std::lower_bound(
        words.cbegin(), words.cend(), prefix,
        [](const std::pair<QString, int>& w, const QString& p) { return w.first < p; });
    int count = 0;
    for (; it != words.cend() && it->first.startsWith(prefix); ++it)
        count += it->second;
    return count;
}

} // namespace

QString HelpTopics::titleOf(const QString& html) {
    static const QRegularExpression title(u"<title[^>]*>(.*?)</title\\s*>"_s, kOptions);
    const QRegularExpressionMatch m = title.match(html);
    if (!m.hasMatch())
        return {};
    static const QRegularExpression tag(u"<[^>]*>"_s);
    return simplified(QString(m.captured(1)).replace(tag, u" "_s));
}

QString HelpTopics::textOf(const QString& html) {
    static const QRegularExpression hidden(
        u"<!--.*?-->|<head[\\s>].*?</head\\s*>|<script[\\s>].*?</script\\s*>|<style[\\s>].*?</style\\s*>"_s,
        kOptions);
    static const QRegularExpression tag(u"<[^>]*>"_s);
    QString text = html;
    text.replace(hidden, u" "_s);
    text.replace(tag, u" "_s);
    return simplified(text);
}

QStringList HelpTopics::wordsOf(const QString& text) {
    QStringList words;
    QString word;
    for (const QChar c : text) {
        if (c.isLetterOrNumber()) {
            word += c.toLower();
        } else if (!word.isEmpty()) {
            words.append(word);
            word.clear();
        }
    }
    if (!word.isEmpty())
        words.append(word);
    return words;
}

QStringList HelpTopics::linksOf(const QString& html) {
    static const QRegularExpression link(u"<a\\s[^>]*?href\\s*=\\s*[\"']([^\"']*)[\"']"_s,
                                         kOptions);
    QStringList links;
    auto it = link.globalMatch(html);
    while (it.hasNext()) {
        QString target = decodeEntities(it.next().captured(1)).trimmed();
        if (const qsizetype hash = target.indexOf(u'#'); hash >= 0)
            target.truncate(hash);
        if (target.isEmpty() || target.contains(u':') || target.startsWith(u'/') ||
            links.contains(target))
            continue;
        links.append(target);
    }
    return links;
}

HelpTopics HelpTopics::load(const QString& folder) {
    HelpTopics result;
    result.m_folder = folder;
    const QDir dir(folder);
    const QFileInfoList files =
        dir.entryInfoList({u"*.html"_s, u"*.htm"_s}, QDir::Files | QDir::Readable, QDir::Name);
    QString contentsHtml;
    for (const QFileInfo& info : files) {
        if (result.m_topics.size() >= MaxPages)
            break;
        if (info.size() > MaxPageBytes)
            continue;
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString html = QString::fromUtf8(file.read(MaxPageBytes));
        Topic topic;
        topic.name = info.completeBaseName();
        topic.fileName = info.fileName();
        topic.title = titleOf(html);
        if (topic.title.isEmpty())
            topic.title = topic.name;
        topic.text = textOf(html);
        topic.titleWords = countedWords(topic.title);
        topic.textWords = countedWords(topic.text);
        if (topic.name.compare(u"index"_s, Qt::CaseInsensitive) == 0)
            contentsHtml = html;
        result.m_topics.append(std::move(topic));
    }

    // The order of the contents: the contents page, its links, then the rest by title.
    QHash<QString, int> rank;
    rank.insert(u"index"_s, 0);
    for (const QString& link : linksOf(contentsHtml)) {
        const QString key = QFileInfo(link).completeBaseName().toLower();
        if (!rank.contains(key))
            rank.insert(key, int(rank.size()));
    }
    std::stable_sort(result.m_topics.begin(), result.m_topics.end(),
                     [&rank](const Topic& a, const Topic& b) {
                         const int ra = rank.value(a.name.toLower(), INT_MAX);
                         const int rb = rank.value(b.name.toLower(), INT_MAX);
                         if (ra != rb)
                             return ra < rb;
                         return a.title.compare(b.title, Qt::CaseInsensitive) < 0;
                     });
    return result;
}

const HelpTopics::Topic* HelpTopics::find(const QString& name) const {
    for (const Topic& topic : m_topics) {
        if (topic.name.compare(name, Qt::CaseInsensitive) == 0)
            return &topic;
    }
    return nullptr;
}

const HelpTopics::Topic* HelpTopics::findFile(const QString& fileName) const {
    for (const Topic& topic : m_topics) {
        if (topic.fileName == fileName)
            return &topic;
    }
    return nullptr;
}

QList<const HelpTopics::Topic*> HelpTopics::search(const QString& query) const {
    QStringList words = wordsOf(query);
    words.removeDuplicates();
    QList<std::pair<int, const Topic*>> found;
    if (words.isEmpty())
        return {};
    for (const Topic& topic : m_topics) {
        int score = 0;
        for (const QString& word : words) {
            const int inTitle = prefixCount(topic.titleWords, word);
            const int inText = prefixCount(topic.textWords, word);
            if (inTitle + inText == 0) {
                score = 0;
                break;
            }
            score += 10 * inTitle + inText;
        }
        if (score > 0)
            found.append({score, &topic});
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        if (a.first != b.first)
            return a.first > b.first;
        return a.second->title.compare(b.second->title, Qt::CaseInsensitive) < 0;
    });
    QList<const Topic*> topics;
    for (const auto& [score, topic] : found)
        topics.append(topic);
    return topics;
}
