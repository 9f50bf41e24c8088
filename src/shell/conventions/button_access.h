#pragma once

namespace shell {

// Lets assistive technology press the buttons of pages as the pointer would: only where they take a press,
// and a check box or option is clicked. The toolkit's own way switches it without a click, which no handler
// hears of.
void Install_Button_Access();

} // namespace shell
