#include "sampledb/sample_texts.h"

using namespace Qt::StringLiterals;

namespace sample_data {

const QStringList& Surnames() {
    static const QStringList surnames = {
        u"Adeyemi"_s,    u"Ahmed"_s,       u"Allen"_s,    u"Baker"_s,      u"Begum"_s,         u"Bennett"_s,
        u"Brown"_s,      u"Campbell"_s,    u"Carter"_s,   u"Chaudhry"_s,   u"Clark"_s,         u"Cooper"_s,
        u"D'Arcy"_s,     u"Davies"_s,      u"De Souza"_s, u"Édouard"_s,    u"Edwards"_s,       u"Ellis"_s,
        u"Evans"_s,      u"Fernández"_s,   u"Fletcher"_s, u"Foster"_s,     u"Gray"_s,          u"Green"_s,
        u"Griffiths"_s,  u"Hall"_s,        u"Harris"_s,   u"Hassan"_s,     u"Hughes"_s,        u"Hussain"_s,
        u"Jackson"_s,    u"James"_s,       u"Jones"_s,    u"Kaur"_s,       u"Kelly"_s,         u"Khan"_s,
        u"King"_s,       u"Kowalski"_s,    u"Lee"_s,      u"Lewis"_s,      u"Łukasik"_s,       u"MacDonald"_s,
        u"Marsh-Cole"_s, u"Martin"_s,      u"Mitchell"_s, u"Moore"_s,      u"Morgan"_s,        u"Murphy"_s,
        u"Ng"_s,         u"Núñez"_s,       u"O'Brien"_s,  u"O'Sullivan"_s, u"Okafor"_s,        u"Öz"_s,
        u"Parker"_s,     u"Patel"_s,       u"Phillips"_s, u"Price"_s,      u"Reynolds-Hope"_s, u"Rahman"_s,
        u"Roberts"_s,    u"Robinson"_s,    u"Scott"_s,    u"Shah"_s,       u"Silva"_s,         u"Singh"_s,
        u"Smith"_s,      u"Smith-Jones"_s, u"Stewart"_s,  u"Taylor"_s,     u"Thomas"_s,        u"Turner"_s,
        u"Walker"_s,     u"Ward"_s,        u"Watson"_s,   u"White"_s,      u"Williams"_s,      u"Wójcik"_s,
        u"Wright"_s,     u"Žižek"_s,
    };
    return surnames;
}

const QList<Forename>& Forenames() {
    static const QList<Forename> forenames = {
        {u"Aisha"_s, u"F"_s},    {u"Alfie"_s, u"M"_s},   {u"Amelia"_s, u"F"_s}, {u"Amir"_s, u"M"_s},
        {u"Anaïs"_s, u"F"_s},    {u"Arthur"_s, u"M"_s},  {u"Ava"_s, u"F"_s},    {u"Benjamin"_s, u"M"_s},
        {u"Bo"_s, u"M"_s},       {u"Charlie"_s, u"M"_s}, {u"Chloë"_s, u"F"_s},  {u"Daisy"_s, u"F"_s},
        {u"Dylan"_s, u"M"_s},    {u"Ella"_s, u"F"_s},    {u"Élodie"_s, u"F"_s}, {u"Emily"_s, u"F"_s},
        {u"Ethan"_s, u"M"_s},    {u"Fatima"_s, u"F"_s},  {u"Finley"_s, u"M"_s}, {u"Freya"_s, u"F"_s},
        {u"George"_s, u"M"_s},   {u"Grace"_s, u"F"_s},   {u"Hannah"_s, u"F"_s}, {u"Harry"_s, u"M"_s},
        {u"Hugo"_s, u"M"_s},     {u"Ibrahim"_s, u"M"_s}, {u"Isla"_s, u"F"_s},   {u"Jack"_s, u"M"_s},
        {u"Jacob"_s, u"M"_s},    {u"Jo"_s, u"F"_s},      {u"José"_s, u"M"_s},   {u"Leo"_s, u"M"_s},
        {u"Lily-Mae"_s, u"F"_s}, {u"Luca"_s, u"M"_s},    {u"Maya"_s, u"F"_s},   {u"Mia"_s, u"F"_s},
        {u"Mohammed"_s, u"M"_s}, {u"Noah"_s, u"M"_s},    {u"Nia"_s, u"F"_s},    {u"Oliver"_s, u"M"_s},
        {u"Olivia"_s, u"F"_s},   {u"Oscar"_s, u"M"_s},   {u"Poppy"_s, u"F"_s},  {u"Priya"_s, u"F"_s},
        {u"Rosie"_s, u"F"_s},    {u"Samuel"_s, u"M"_s},  {u"Siân"_s, u"F"_s},   {u"Sofia"_s, u"F"_s},
        {u"Theo"_s, u"M"_s},     {u"Thomas"_s, u"M"_s},  {u"Yusuf"_s, u"M"_s},  {u"Zofia"_s, u"F"_s},
    };
    return forenames;
}

const QStringList& Passwords() {
    static const QStringList passwords = {u"sunny7"_s,  u"blue kite"_s, u"Otter"_s,
                                          u"tractor"_s, u"café"_s,      u"it's me"_s};
    return passwords;
}

const QStringList& Short_Comments() {
    static const QStringList comments = {
        u"Enjoyed it."_s,
        u"Wears glasses; didn't have them today."_s,
        u"Tired after sports day. O'Hara to retest one game."_s,
        u"Speaks Français at home - \"naïve\" errors in the word games may come from that."_s,
        u"Worked quickly.\r\nAsked twice whether the picture would come back.\r\n\r\nRepeat in summer."_s,
        u"Said \"I've done this before\" at the start; he hadn't. Settled after the first two items."_s,
    };
    return comments;
}

QString Long_Comment() {
    const QStringList paragraphs = {
        u"The games were given on several mornings in the library corner, with one other child reading "
        u"nearby. At first there was some worry about the headphones, and the volume was turned down "
        u"before we began. After the practice items the worry had gone, and most of the games were "
        u"greeted with a smile. The first long sequence brought a pause, a look at the ceiling and a "
        u"whispered count of the fingers, which is a habit that the class teacher knows well from "
        u"number work."_s,
        u"Memory for places was plainly stronger than memory for spoken words. With the pictures a "
        u"steady rhythm was kept, even where four or five things had to be held in mind at once. When "
        u"the order had to be listened to, the beginning was often kept and the end was lost, and twice "
        u"the answer was the last animal alone. Asked how the order was remembered, the reply was "
        u"\"I say it again inside\", so a strategy is there, but it is slow and breaks off as soon as "
        u"something else happens in the room."_s,
        u"In the rhyming game nearly all of the easy pairs were right. The mistakes fell on pictures "
        u"that begin with the same sound, and each of them came quickly, as if the first sound had been "
        u"taken for the answer. Telling two close words apart went well on the whole; the pairs with a "
        u"short vowel were guessed, and this was said openly. No hearing difficulty is known, although "
        u"there were several colds in the autumn and a check may do no harm."_s,
        u"Colours gave no trouble at all. The new names for the symbols were learned with effort: after "
        u"a mistake the same wrong name was given again three times, and it took a short break and a "
        u"drink of water before it could be put right. Praise helped more than a second explanation."_s,
        u"For the coming term I'd suggest short listening games in a small group, two or three times a "
        u"week, starting with two steps and going on to three only when two are safe. Written or drawn "
        u"reminders on the table will help with longer instructions. Reading at home should go on as "
        u"before; the family reads a lot together and it shows. I'd like to see the listening games "
        u"again before the summer, at about the same time of day, and compare. Please tell me if "
        u"anything changes at home or in class before then, and add it below this note."_s,
    };
    return paragraphs.join(u"\r\n\r\n"_s);
}

} // namespace sample_data
