#include "scoring/item_arithmetic.h"

namespace scoring {

namespace {

using basics::Value;
using Elements = basics::Bounded<List_Element, 100>;

void Set(List_Element& element, QStringView text) {
    element.letters.assign(text.utf16(), static_cast<std::size_t>(text.size()));
}

void Split(QStringView list, Elements& elements, int& count) {
    count = 0;
    qsizetype start = 0;
    for (qsizetype at = 0; at < list.size(); ++at) {
        if (list[at] != u',') continue;
        Set(elements[++count], list.sliced(start, at - start));
        start = at + 1;
    }
    if (start < list.size()) Set(elements[++count], list.sliced(start)); // a trailing comma adds none
}

struct Misplaced_Elements {
    basics::Bounded<int, 10> places; // in both lists
    int count = 0;
};

Misplaced_Elements Elements_Out_Of_Place(const Work_Lists& work) {
    Misplaced_Elements misplaced;
    for (int i = 1; i <= work.Requested_Count; ++i) {
        if (work.Chosen_Items[i] == work.Requested_Items[i]) continue;
        misplaced.places[++misplaced.count] = i;
    }
    return misplaced;
}

void Tell_Pair(int asked, int chosen, const Work_Lists& work) {
    if (work.Heard_By) work.Heard_By->push_back({asked, chosen});
}

int Equal_Pairs(const Misplaced_Elements& misplaced, const Work_Lists& work) {
    int pairs = 0;
    for (int i = 1; i <= misplaced.count; ++i)
        for (int j = 1; j <= misplaced.count; ++j) {
            const int asked = misplaced.places[i];
            const int chosen = misplaced.places[j];
            if (work.Requested_Items[asked] != work.Chosen_Items[chosen]) continue;
            ++pairs;
            Tell_Pair(asked, chosen, work);
        }
    return pairs;
}

} // namespace

void Split_Requested(const Value& text, Work_Lists& work) {
    Split(text.As_Text(), work.Requested_Items, work.Requested_Count);
}

void Split_Chosen(const Value& text, Work_Lists& work) {
    Split(text.As_Text(), work.Chosen_Items, work.Chosen_Count);
}

void Score_Item(const Value& requested, const Value& chosen, int& result, Item_Form form, Work_Lists& work) {
    result = 0;
    if (form == Item_Form::List) {
        Split_Requested(requested, work);
        Split_Chosen(chosen, work);
        for (int i = 1; i <= work.Requested_Count; ++i)
            if (work.Chosen_Items[i] == work.Requested_Items[i]) ++result;
    } else if (chosen == requested) {
        result = 1;
    }
    work.Last_Correct_Count = result;
}

void Seq_Errors_Direct(const Value& requested, const Value& chosen, int& result, Item_Form form,
                       Work_Lists& work) {
    result = 0;
    if (form == Item_Form::List) {
        Split_Requested(requested, work);
        Split_Chosen(chosen, work);
        for (int i = 1; i <= work.Requested_Count; ++i)
            for (int j = 1; j <= work.Requested_Count; ++j) {
                if (work.Requested_Items[j] != work.Chosen_Items[i]) continue;
                ++result;
                if (i != j) Tell_Pair(j, i, work); // one in place is taken off again below
            }
    }
    result -= work.Last_Correct_Count;
}

void Seq_Errors_Misplaced(const Value& requested, const Value& chosen, int& result, Item_Form form,
                          Work_Lists& work) {
    if (form == Item_Form::Single) return;
    Split_Requested(requested, work);
    Split_Chosen(chosen, work);
    result = Equal_Pairs(Elements_Out_Of_Place(work), work);
}

} // namespace scoring
