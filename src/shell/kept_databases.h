#pragma once

#include "foundation/installation.h"
#include "platform/database/files/kept_copies.h"

#include <QTreeWidget>

namespace shell {

// All that were kept of the working database: before a page that can empty it was worked on, and before an
// archive or a clean start took its place. The latest first.
QList<database::Kept_File> Kept_Databases(const foundation::Installation& installation);

// Why one was kept: "Before the Delete page".
QString Why_Kept(const database::Kept_File& kept);

// A list of rows, of which one at a time is chosen.
struct List_Column {
    QString caption;
    int width; // pixels
};
QTreeWidget* Make_Choice_List(const QString& name, const QString& accessible_name,
                              const QList<List_Column>& columns, const QRect& place, QWidget* parent);

} // namespace shell
