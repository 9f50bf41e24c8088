#pragma once

#include "shell/conventions/page.h"

namespace bench {

// A page that is measured by itself leads nowhere.
class Nowhere final : public shell::Navigator {
public:
    void Go_To(shell::Page_Id) override {}
    void Open_On_Top(shell::Page_Id) override {}
    void Close_Page() override {}
    void Unload_All() override {}
};

} // namespace bench
