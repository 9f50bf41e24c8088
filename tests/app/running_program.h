#pragma once

#include "app/program.h"
#include "support/controls.h"
#include "support/sample_file.h"
#include "support/scripted_platform.h"

namespace test_support {

// The whole program on a sample installation, its window shown.
class Running_Program {
public:
    explicit Running_Program(int pupils = 12, const QSize& screen = {1280, 720});

    void Start(); // to the Main menu
    // Waits for the page, and for the work that it does once it has been painted. Throws if it doesn't come.
    void Follow_To(const QString& page);
    shell::Page& Page() { return *program.Window().Current(); }

    Sample_File sample;
    Scripted_Platform outside;
    app::Program program{outside.platform};
};

} // namespace test_support
