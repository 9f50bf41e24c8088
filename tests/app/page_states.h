#pragma once

#include "shell/conventions/theme.h"

#include <QString>
#include <functional>

class QWidget;

namespace test_support {

// Is shown a page or dialog in a state worth looking at. The name is unique.
using Look_At = std::function<void(const QString& state, QWidget& surface)>;

// Leads through all pages and dialogs of the program, with the theme on. All that could differ from run to
// run stands: the clock, the pupils, the names of files.
void Go_Through_All_Pages(const Look_At& look, shell::Scheme scheme = shell::Scheme::Light);

} // namespace test_support
