#pragma once

#include "platform/basics/run_time_error.h"

#include <vector>

namespace basics {

// A list with places 0 to Highest, as many as the system allows. A place outside is run-time error 9,
// not silence: more pupils or items than fit must stop the work rather than spoil a neighbour.
template<class T, int Highest>
class Bounded {
public:
    using Reference = typename std::vector<T>::reference;
    using Const_Reference = typename std::vector<T>::const_reference;

    Reference operator[](int place) { return elements[Checked(place)]; }
    Const_Reference operator[](int place) const { return elements[Checked(place)]; }

    void Fill(const T& value) { elements.assign(Highest + 1, value); }

private:
    static std::size_t Checked(int place) {
        if (place < 0 || place > Highest) Raise(errors::Subscript_Out_Of_Range);
        return static_cast<std::size_t>(place);
    }

    std::vector<T> elements = std::vector<T>(Highest + 1);
};

} // namespace basics
