#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace sample_data {

struct Forename {
    QString name;
    QString sex; // "M" or "F"
};

const QStringList& Surnames();
const QList<Forename>& Forenames();
const QStringList& Passwords();
const QStringList& Short_Comments(); // with quotes, accents and line breaks among them
QString Long_Comment();              // some 400 words, more than the foot of a report sheet holds

} // namespace sample_data
