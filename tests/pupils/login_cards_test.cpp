#include "pupils/login_cards.h"

#include "platform/recorded_page.h"
#include "pupils/record_page_fixture.h"

namespace pupils {
namespace {

const Login Logins[] = {
    {.user_id = u"ADENIA551CNG"_s, .surname = u"Adeyemi"_s, .forename = u"Nia"_s, .password = u"O0|;l"_s},
    {.user_id = u"CHACHA257DIF"_s,
     .surname = u"Chaudhry"_s,
     .forename = u""_s,
     .born = u"19/11/2017"_s,
     .by_birthday = true,
     .on_list = false},
    {.user_id = u"DE AVA713GPY"_s, .surname = u"De Souza"_s, .forename = u"Ava"_s},
    {.user_id = u"FEAMAX000AAA"_s,
     .surname = u"Featherstonehaugh-Cholmondeley Majoribanks"_s,
     .forename = u"Maximilian Ángeles Élodie Öztürk"_s,
     .password = QString(50, u'M')},
    {.user_id = u"WWWWWW000AAA"_s,
     .surname = QString(50, u'W'),
     .forename = QString(50, u'W'),
     .password = u"a  b"_s},
};

class Login_Sheets : public Record_Page {
protected:
    static Class_Logins Class_Of(int pupils) {
        Class_Logins logins{u"Oak | Ash"_s, false, {}};
        for (int i = 0; i < pupils; ++i)
            logins.pupils.append(Logins[i % std::size(Logins)]);
        return logins;
    }
    QStringList Drawn(int number) { return Texts_On(sheet.Page(number)); }
    void Expect_Sheets_In_Order(int count) {
        ASSERT_EQ(sheet.PageCount(), count);
        for (int number = 1; number <= count; ++number) {
            EXPECT_EQ(Overlaps(sheet.Page(number)), QStringList());
            for (const auto& line : All_Of<preview::Text_Operation>(sheet.Page(number)))
                EXPECT_TRUE(QRectF(400, 200, 11106, 16400).contains(preview::Ink_Of(line)))
                    << line.text.toStdString();
        }
    }

    preview::ViewPro sheet;
};

} // namespace

TEST_F(Login_Sheets, ThirtyPupilsTakeFourSheetsOfCardsEachWithItsLogin) {
    Draw_Login_Cards({Class_Of(30), Class_Of(1), Class_Of(0)},
                     u"St Bartholomew's and Holy Trinity Primary School"_s, sheet);
    Expect_Sheets_In_Order(4 + 1 + 1);
    EXPECT_EQ(test_support::Lines_Of(sheet.Page(1), u"User ID"_s).size(), 8);
    EXPECT_EQ(test_support::Lines_Of(sheet.Page(4), u"User ID"_s).size(), 30 - 3 * 8);
    const std::tuple<QString, bool, int> texts[] = {// with fixed letters, and the size in points at least
                                                    {u"Nia"_s, false, 30},
                                                    {u"Adeyemi"_s, false, 18},
                                                    {u"ADENIA551CNG"_s, true, 18},
                                                    {u"O0|;l"_s, true, 18},
                                                    {u"your birthday"_s, false, 18},
                                                    {u"Chaudhry"_s, false, 30},
                                                    {u"no password yet"_s, false, 18},
                                                    {QString(50, u'M'), true, 8},
                                                    {u"a  b"_s, true, 18}};
    for (const auto& [text, fixed, size] : texts) {
        SCOPED_TRACE(text.toStdString());
        const auto found = test_support::Lines_Of(sheet.Page(1), text);
        ASSERT_FALSE(found.isEmpty());
        EXPECT_EQ(found.first().style.fixed_pitch, fixed);
        EXPECT_GE(found.first().style.font_size, size);
    }
}

TEST_F(Login_Sheets, TheTeachersListTellsWhoTheLoginListLeavesOut) {
    Draw_Class_Sheets({Class_Of(40)}, u"Hillside"_s, outside.clock, sheet);
    Expect_Sheets_In_Order(2);
    EXPECT_TRUE(Drawn(1).contains(
        u"The group isn't shown in the Login List. Pupils below who aren't shown in the Login List: 8."_s));
    EXPECT_TRUE(Drawn(1).contains(u"O0|;l"_s)) << "letter by letter";
    EXPECT_TRUE(Drawn(1).contains(u"birthday, 19/11/2017"_s));
    EXPECT_EQ(test_support::Lines_Of(sheet.Page(1), u"No"_s).size() +
                  test_support::Lines_Of(sheet.Page(2), u"No"_s).size(),
              8);
}

TEST_F(Login_Sheets, ThePageShowsWhatIsStoredOfTheChosenGroup) {
    Set(u"Khan"_s, u"Group_Class = 'MRS O''HARA''S CLASS', Password = 'fox', Dob_as_pw = 0"_s);
    Set(u"Patel"_s, u"Group_Class = 'Gone'"_s);
    records.Group_For_Cards = u"Mrs O'Hara's class"_s;
    Login_Cards cards(outside.platform, navigator, Data());
    Show(cards);
    cards.Load();
    const auto shown = [&] { return Control<QWidget>(cards, u"ViewPro1"_s).accessibleDescription(); };
    EXPECT_EQ(Chosen(u"Group"_s), records.Group_For_Cards);
    EXPECT_TRUE(shown().contains(u"fox"_s));
    EXPECT_FALSE(shown().contains(u"Patel"_s));
    EXPECT_EQ(Combo(u"Group"_s).itemText(Combo(u"Group"_s).count() - 1), u"No group"_s);
    Choose(u"Group"_s, u"No group"_s);
    Click(u"ClassList"_s);
    EXPECT_TRUE(shown().contains(u"Patel"_s));
    Click(u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.printed, QStringList{u"Mevo logins"_s});

    sample.Move_Away();
    outside.boxes.Will_Answer(Answer::Ok);
    Login_Cards none(outside.platform, navigator, Data());
    none.Load();
    EXPECT_TRUE(outside.boxes.shown.last().text.startsWith(u"The logins can't be read at present: "_s));
    test_support::Click(none, u"HotLabel2"_s);
    EXPECT_EQ(outside.printers.printed.size(), 1);
}

} // namespace pupils
