#include "platform/desktop/disk_ports.h"

#include "platform/basics/native_path.h"
#include "platform/desktop/windows_services.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

class File_Of_Settings final : public Ini_Files {
public:
    QString Value(const QString& file, const QString& section, const QString& key,
                  const QString& missing) override {
        QFile opened(basics::Native_Path(file));
        if (!opened.open(QIODevice::ReadOnly)) return missing;
        const QString value = Ini_Value(Decoded(opened.readAll()), section, key);
        return value.isNull() ? missing : value;
    }

private:
    // Written by whatever editor a school has: UTF-8, or the older single-byte page.
    static QString Decoded(const QByteArray& bytes) {
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString text = utf8(bytes);
        return utf8.hasError() ? QString::fromLatin1(bytes) : text;
    }
};

class Disk_Files final : public Files {
public:
    QString Dir(const QString& file) override {
        const QFileInfo info(basics::Native_Path(file));
        return info.isFile() ? info.fileName() : QString();
    }
};

class System_Folders final : public Special_Folders {
public:
    int Folder_Path(int number, QString& path) override { return System_Folder(number, path); }
};

} // namespace

Disk_Ports::Disk_Ports()
    : ini(std::make_unique<File_Of_Settings>()),
      files(std::make_unique<Disk_Files>()),
      folders(std::make_unique<System_Folders>()) {
}

} // namespace desktop
