#include "platform/desktop/user_settings.h"

#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

// Opened for each value: two programs of one account may be running, and each keeps what the other wrote.
class Settings_File final : public User_Settings {
public:
    explicit Settings_File(const QString& file) : file(file) {}

    QString Value(const QString& key, const QString& missing) override {
        const QVariant value = QSettings(file, QSettings::IniFormat).value(key);
        return value.canConvert<QString>() ? value.toString() : missing;
    }

    void Keep(const QString& key, const QString& value) override {
        QSettings(file, QSettings::IniFormat).setValue(key, value);
    }

private:
    QString file;
};

} // namespace

QString User_Settings_File() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/mevo/settings.ini"_s;
}

std::unique_ptr<User_Settings> Make_User_Settings(const QString& file) {
    return std::make_unique<Settings_File>(file);
}

} // namespace desktop
