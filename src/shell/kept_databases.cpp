#include "shell/kept_databases.h"

#include "platform/basics/native_path.h"
#include "platform/database/files/page_copies.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace shell {

using database::Kept_File;

// What a replacement kept lies among the archives, or where that couldn't be beside the database.
static QStringList Folders_Of_Copies(const foundation::Installation& installation) {
    const QString working = basics::Native_Path(installation.Database_Path);
    QStringList folders;
    for (const QString& folder :
         {database::Copies_Folder(working),
          database::Copies_Folder(foundation::Database_Named_In(installation.Connection_String)),
          basics::Native_Path(installation.Archive_Folder), QFileInfo(working).absolutePath()})
        if (!folder.isEmpty()) folders.append(QFileInfo(folder).canonicalFilePath());
    folders.removeAll(QString()); // those that aren't there
    folders.removeDuplicates();
    return folders;
}

QList<Kept_File> Kept_Databases(const foundation::Installation& installation) {
    QList<Kept_File> kept;
    for (const QString& folder : Folders_Of_Copies(installation))
        kept += database::Kept_Files_In(folder);
    std::stable_sort(kept.begin(), kept.end(),
                     [](const Kept_File& left, const Kept_File& right) { return left.when > right.when; });
    return kept;
}

QString Why_Kept(const Kept_File& kept) {
    static const QMap<QString, QString> words = {
        {u"delete"_s, u"Before the Delete page"_s},     {u"import"_s, u"Before the Import page"_s},
        {u"security"_s, u"Before the Security page"_s}, {u"fine_tuning"_s, u"Before the Fine tuning page"_s},
        {u"load"_s, u"Before an archive was loaded"_s}, {u"clean_start"_s, u"Before a clean start"_s},
    };
    return words.value(kept.reason, kept.reason);
}

QTreeWidget* Make_Choice_List(const QString& name, const QString& accessible_name,
                              const QList<List_Column>& columns, const QRect& place, QWidget* parent) {
    auto* list = new QTreeWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(accessible_name);
    list->setGeometry(place);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->setTabKeyNavigation(false);
    list->header()->setSectionsMovable(false);
    QStringList captions;
    for (const List_Column& column : columns)
        captions.append(column.caption);
    list->setHeaderLabels(captions);
    for (int i = 0; i < columns.size(); ++i)
        list->setColumnWidth(i, columns[i].width);
    return list;
}

} // namespace shell
