#include "support/files.h"
#include "support/printing.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test_support::Bytes_Of;

namespace {

QStringList Found(const QString& text, const QString& pattern) {
    QStringList found;
    const QRegularExpression expression(pattern);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

const QString Teachers_Manual = u"Quend Mevo Teachers Manual Mar2010 4th Edn.htm"_s;
const QString Software_Guide = u"Quend Mevo Software Guide v5.1.htm"_s;

QDir Manuals() {
    return QDir(QStringLiteral(MEVO_ASSETS) + u"/Manuals"_s);
}

// What the boxes say, in the pieces that the sources have: of a question the text, and not its title.
QStringList Texts_Of_Boxes() {
    QStringList pieces;
    QDirIterator sources(QStringLiteral(MEVO_SOURCES), {u"*.cpp"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (sources.hasNext())
        for (const QString& told : Found(QString::fromUtf8(Bytes_Of(sources.next())),
                                         u"(?s)boxes\\.Ask\\([^,]*,[^,]*,(.*?)\\)(?:;| [!=]=)"_s))
            for (const QString& literal : Found(told, u"\"((?:[^\"\\\\]|\\\\.)+)\""_s))
                pieces += literal.split(QRegularExpression(u"\\\\[rn]"_s), Qt::SkipEmptyParts);
    return pieces;
}

// As it is read: without mark-up.
QString Troubleshooting() {
    QString section = Found(QString::fromUtf8(Bytes_Of(Manuals().filePath(Software_Guide))),
                            u"(?s)<section id=\"troubleshooting\">(.*?)</section>"_s)
                          .value(0);
    return section.remove(QRegularExpression(u"<[^>]*>"_s));
}

} // namespace

// The names are those that the menu opens.
TEST(Manuals, EveryLinkAndPictureLeadsSomewhere) {
    const QDir folder = Manuals();
    QSet<QString> linked;
    for (const QString& name : {Teachers_Manual, Software_Guide}) {
        SCOPED_TRACE(name.toStdString());
        const QString page = QString::fromUtf8(Bytes_Of(folder.filePath(name)));
        const QStringList ids = Found(page, u"\\sid=\"([^\"]+)\""_s);
        const QSet<QString> places(ids.begin(), ids.end());
        EXPECT_EQ(places.size(), ids.size()) << "a place is named twice";
        const QStringList links = Found(page, u"(?:href|src)=\"([^\"]+)\""_s);
        EXPECT_GT(links.size(), 10);
        for (const QString& link : links) {
            const QUrl url(link);
            linked.insert(url.path());
            EXPECT_TRUE(url.isRelative()) << link.toStdString(); // a school may have no way out
            if (!url.path().isEmpty()) {
                EXPECT_TRUE(folder.exists(url.path())) << link.toStdString();
            } else {
                EXPECT_TRUE(places.contains(url.fragment())) << link.toStdString();
            }
        }
        EXPECT_EQ(Found(page, u"(<img(?![^>]*\\salt=\"[^\"]+\")[^>]*>)"_s), QStringList())
            << "no words for it";
    }
    for (const QString& picture : QDir(folder.filePath(u"pictures"_s)).entryList(QDir::Files))
        EXPECT_TRUE(linked.contains(u"pictures/"_s + picture))
            << picture.toStdString() << " is shown nowhere";
}

TEST(Manuals, TellWhatToDoAboutEachBox) {
    const QString told = Troubleshooting();
    const QStringList pieces = Texts_Of_Boxes();
    EXPECT_GT(pieces.size(), 40);
    for (const QString& piece : pieces)
        EXPECT_TRUE(told.contains(piece.trimmed())) << '"' << piece.toStdString() << '"';
}
