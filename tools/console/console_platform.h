#pragma once

#include "platform/desktop/ports.h"

#include <QTextStream>
#include <memory>

namespace console {

// Thrown where a page's code would have ended the process.
struct Program_Ended {
    int status;
};

// The ports of a console program that asks nobody: a box is a line among the errors, and a question is
// answered by giving up. What only a desktop has is not there.
class Console_Platform {
public:
    Console_Platform(const QString& program, QTextStream& errors);
    ~Console_Platform();
    Console_Platform(const Console_Platform&) = delete;
    Console_Platform& operator=(const Console_Platform&) = delete;

    desktop::Platform& Ports();

private:
    struct Bodies;
    std::unique_ptr<Bodies> bodies;
};

} // namespace console
