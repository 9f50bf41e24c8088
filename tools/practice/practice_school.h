#pragma once

#include <QDate>
#include <QString>

namespace practice {

// Stands on the window and heads every printed sheet.
inline const QString& School_Name() {
    static const QString name = QStringLiteral("Practice school, made-up norms");
    return name;
}

// In this account's own data.
QString Customary_Folder();

enum class If_There_Is_One { Keep, Replace };

// Has a practice school of 24 made-up pupils lie in a folder, which is made if it is missing. Their tests lie
// in the ten months before `today`, and they are four to eight years old. Throws std::runtime_error with one
// line for the user; a database that is no practice school's is never touched.
void Provide_School(const QString& folder, QDate today, If_There_Is_One if_there_is_one);

} // namespace practice
