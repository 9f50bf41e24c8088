#pragma once

#include "foundation/installation.h"
#include "shell/conventions/page.h"

namespace shell {

// Copies the database in use, and what is remembered beside it, before the first press reaches a page on
// which a few keys can empty it. The page, which has been shown, is painted first. Other pages want no copy,
// and where none can be made the page is worked on as if there were no copies.
//
// The copy takes one read lock, which is gone when this returns. A page that reads its list a moment later,
// from its timer, does so behind the copy: by then somebody may have pressed something.
void Copy_Before(Page_Id page, const foundation::Installation& installation, desktop::Platform& platform);

} // namespace shell
