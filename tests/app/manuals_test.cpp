#include "support/printing.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Text_Of(const QString& file) {
    QFile page(file);
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QStringList Found(const QString& text, const QString& pattern) {
    QStringList found;
    const QRegularExpression expression(pattern);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

} // namespace

// The names are those that the menu opens.
TEST(Manuals, EveryLinkAndPictureLeadsSomewhere) {
    const QDir folder(QStringLiteral(MEVO_ASSETS) + u"/Manuals"_s);
    for (const QString& name :
         {u"Quend Mevo Teachers Manual Mar2010 4th Edn.htm"_s, u"Quend Mevo Software Guide v5.1.htm"_s}) {
        SCOPED_TRACE(name.toStdString());
        const QString page = Text_Of(folder.filePath(name));
        const QStringList ids = Found(page, u"\\sid=\"([^\"]+)\""_s);
        const QSet<QString> places(ids.begin(), ids.end());
        EXPECT_EQ(places.size(), ids.size()) << "a place is named twice";
        const QStringList links = Found(page, u"(?:href|src)=\"([^\"]+)\""_s);
        EXPECT_GT(links.size(), 10);
        for (const QString& link : links) {
            const QUrl url(link);
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
}
