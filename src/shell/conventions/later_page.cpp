#include "shell/conventions/later_page.h"

using namespace Qt::StringLiterals;

namespace shell {

constexpr QSize Frame_Size{560, 260};

Later_Page::Later_Page(desktop::Platform& platform, Navigator& navigator, const QString& title,
                       Way_Back way_back)
    : Page(platform, navigator, Frame_Size) {
    Make_Label(u"Label1"_s, title, Text_Role::Title, {32, 32, 496, 44});
    QLabel* told =
        Make_Label(u"Label2"_s, u"This page is not built yet."_s, Text_Role::Subtitle, {32, 88, 496, 30});
    told->setWordWrap(true);
    const bool menu = way_back == Way_Back::To_The_Menu;
    Make_HotLabel(u"HotLabel1"_s, menu ? u"Menu"_s : u"Back"_s, {408, 196, 120, 40}, [this, menu] {
        if (menu)
            this->navigator.Go_To(Page_Id::Main_Menu);
        else
            this->navigator.Close_Page();
    });
}

} // namespace shell
