#pragma once

#include "platform/basics/bounded.h"
#include "platform/basics/value.h"

#include <string>
#include <vector>

namespace scoring {

// One element of a list. Its letters are its own: an item whose text somebody shares is allocated anew when
// the next pupil's is read.
struct List_Element {
    std::u16string letters;

    friend bool operator==(const List_Element& left, const List_Element& right) {
        return left.letters == right.letters;
    }
    QStringView Text() const { return letters; }
};

// Two elements that make a sequence error together, by their places in their lists, from 1.
struct Sequence_Pair {
    int asked;
    int chosen;
};

// The elements of the two lists that were split last, from 1. Splitting doesn't clear what lies beyond the
// new count: a chosen list that is too short is compared with an earlier list's tail.
struct Work_Lists {
    basics::Bounded<List_Element, 100> Requested_Items;
    basics::Bounded<List_Element, 100> Chosen_Items;
    int Requested_Count = 0;
    int Chosen_Count = 0;
    int Last_Correct_Count = 0;                     // of the item that Score_Item saw last
    std::vector<Sequence_Pair>* Heard_By = nullptr; // takes each sequence error while somebody listens
};

// What an item's two texts are: one answer each, or lists with commas.
enum class Item_Form { Single, List };

// An item without a value has no list: run-time error 94.
void Split_Requested(const basics::Value& text, Work_Lists& work);
void Split_Chosen(const basics::Value& text, Work_Lists& work);

// The number of elements that are right and in their place.
void Score_Item(const basics::Value& requested, const basics::Value& chosen, int& result, Item_Form form,
                Work_Lists& work);

// Chosen elements that stand anywhere in the requested list, less those in place. Score_Item must have seen
// the same item just before.
void Seq_Errors_Direct(const basics::Value& requested, const basics::Value& chosen, int& result,
                       Item_Form form, Work_Lists& work);

// Pairs among the elements out of place; a single answer leaves result as it is.
void Seq_Errors_Misplaced(const basics::Value& requested, const basics::Value& chosen, int& result,
                          Item_Form form, Work_Lists& work);

} // namespace scoring
