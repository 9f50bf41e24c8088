#pragma once

#include "setup/set_up.h"

#include <QWizard>
#include <functional>

namespace set_up {

enum class Where { This_Computer, Shared_Folder, Just_Trying };

// What the wizard's pages share.
struct Wizard_State {
    Around around;
    // Dialogs that choose a folder or a file; empty text where they were cancelled.
    std::function<QString(const QString& title)> choose_folder;
    std::function<QString(const QString& title)> choose_file;
    std::function<bool(const QString& program)> start; // beside this one

    Where where = Where::This_Computer;
    Order order{};
    Done done{};
};

// Where, what, printed sheets, check, done: what the command line does, a question a page.
class Wizard final : public QWizard {
public:
    explicit Wizard(Wizard_State& state);
};

} // namespace set_up
