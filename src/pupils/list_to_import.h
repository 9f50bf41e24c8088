#pragma once

#include "pupils/import/preparation.h"
#include "pupils/import/prepared_file.h"

namespace pupils {

// What the page that prepares a list and the Import page share: the list with all that was said about it, so
// that one can go back to it from a preview, and the file that it was handed over in. Both go when the two
// pages are left.
struct List_To_Import {
    Preparation list;
    Prepared_File file;

    void Forget() {
        list = {};
        file.Drop();
    }
};

} // namespace pupils
