#pragma once

#include "sampledb/sample_data.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

namespace bench {

// A folder that looks like an installed program's, on a school of its own.
class Installed_Folder {
public:
    explicit Installed_Folder(int pupils) {
        using namespace Qt::StringLiterals;
        QDir().mkpath(School());
        sample_data::Write_Database(School() + u"/Mevo05Data.mdb"_s, {pupils, 1});
        sample_data::Write_Template(School() + u"/Mevo05EmptyDatabase.mdb"_s, 1);
        const QDir program(QApplication::applicationDirPath());
        for (const QString& assets : {u"system"_s, u"Sounds"_s})
            QFile::link(program.filePath(assets), folder.filePath(assets));
        QFile settings(folder.filePath(u"product.ini"_s));
        if (!settings.open(QIODevice::WriteOnly)) throw std::runtime_error("can't write product.ini");
        settings.write(u"[SETTINGS]\r\ndatabase_sharepath=%1\r\n"_s.arg(School()).toUtf8());
    }
    QString Path() const { return folder.path(); }
    QString School() const { return folder.filePath(QStringLiteral("school")); }

private:
    QTemporaryDir folder;
};

} // namespace bench
