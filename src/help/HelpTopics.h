#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

// The topics of the program's help: the HTML pages of one folder, each with its title (from
// <title>) and its words, for the contents and for a search by word.
class HelpTopics {
public:
    struct Topic {
        QString name;     // the file name without ".html": the window the page tells of
        QString fileName; // the file name in the folder
        QString title;
        QString text; // the page as plain text
        // Lower-case words with their counts, sorted by word: of the title and of the text.
        QList<std::pair<QString, int>> titleWords;
        QList<std::pair<QString, int>> textWords;
    };

    // Pages larger than this are left out, and no more than MaxPages are read.
    static constexpr qint64 MaxPageBytes = 2 * 1024 * 1024;
    static constexpr int MaxPages = 1000;

    // Reads the *.html pages of a folder. The contents page index.html comes first, then the
    // pages in the order in which it links to them, then the others by title.
    static HelpTopics load(const QString& folder);

    const QString& folder() const { return m_folder; }
    const QList<Topic>& topics() const { return m_topics; }
    bool isEmpty() const { return m_topics.isEmpty(); }
    // The topic of that name (case ignored); null when there is none.
    const Topic* find(const QString& name) const;
    // The topic shown by that file name; null when there is none.
    const Topic* findFile(const QString& fileName) const;

    // The topics that hold every word of the query, each as a word or as the start of one, case
    // ignored; those with the most matches first, a match in the title counting ten times. An
    // empty query finds nothing.
    QList<const Topic*> search(const QString& query) const;

    // The parts of a page, for the tests.
    static QString titleOf(const QString& html);
    static QString textOf(const QString& html);
    // The words of a text, lower case, in order: runs of letters and digits.
    static QStringList wordsOf(const QString& text);
    // The pages a page links to, in order, without anchors and without doubles; links that leave
    // the folder (a scheme, an absolute path) are not among them.
    static QStringList linksOf(const QString& html);

private:
    QString m_folder;
    QList<Topic> m_topics;
};
