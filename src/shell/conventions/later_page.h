#pragma once

#include "shell/conventions/page.h"

namespace shell {

// Stands where a page of this release isn't built yet: says so, and leads back.
class Later_Page final : public Page {
    Q_OBJECT
public:
    enum class Way_Back { To_The_Menu, To_The_Page_Beneath };
    Later_Page(desktop::Platform& platform, Navigator& navigator, const QString& title, Way_Back way_back);
    void Load() override {}
};

} // namespace shell
