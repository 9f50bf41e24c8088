#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace pupils {

// What the import's form and its statements can't carry, or what a field would lose on its way.
struct Field_Rule {
    QList<qsizetype> places; // of the fields that it holds for
    bool (*broken)(const QString& field, qsizetype place);
    QString words;   // behind "the surname"
    bool in_preview; // costs a record that was read the pupil, or the pupil the group's row
    QString (*cured)(const QString& field);
};
const QList<Field_Rule>& Field_Rules();

// "the class holds an apostrophe, ...": each rule that the fields break. The preview's are those that cost a
// record of the import's own file something without a word.
QStringList Broken_Rules(const QStringList& fields, bool of_preview);
// The fields with every cure that there is.
QStringList Cured(QStringList fields);

QString Field_Name(qsizetype place); // "surname"

} // namespace pupils
