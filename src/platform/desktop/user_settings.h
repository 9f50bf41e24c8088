#pragma once

#include "platform/desktop/ports.h"

#include <memory>

namespace desktop {

// Below the account's own settings, where no other account reads or writes.
QString User_Settings_File();

// Settings in that initialisation file, which is made with the first value.
std::unique_ptr<User_Settings> Make_User_Settings(const QString& file);

// For programs that leave the account's own settings alone.
class No_User_Settings final : public User_Settings {
public:
    QString Value(const QString&, const QString& missing) override { return missing; }
    void Keep(const QString&, const QString&) override {}
};

} // namespace desktop
