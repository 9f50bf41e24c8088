#include "keeping/change_list.h"
#include "keeping/earlier_takings.h"
#include "pupils/changes_page.h"
#include "pupils/delete_page.h"
#include "pupils/fine_tuning_page.h"
#include "pupils/record_page_fixture.h"
#include "pupils/security_page.h"
#include "support/files.h"

#include <QFile>
#include <QLabel>
#include <gtest/gtest.h>

namespace pupils {
namespace {

QStringList Noted_Of(const QString& database) {
    QStringList lines;
    for (const keeping::Change& change : keeping::Changes_In(database))
        lines.append(QStringList{change.act, change.subject, change.detail}.join(u'|'));
    return lines;
}

using Remembered_Settings = Page_Filled_Later<Form2>;
using Fine_Tuning = Page_Filled_Later<Form15>;

class Remembered : public Fine_Tuning {
protected:
    void Allow_A_Retest_Of_Karrel(const QString& surname) {
        Choose(u"Combo1"_s,
               sample.Value(u"SELECT Surname || ' ' || Forename || ' (' || StudentCode || ')' FROM "
                            "Mevo_Pupils WHERE Surname = '%1'"_s.arg(surname)));
        form->Begin_Retest_Edit(Combo(u"Combo1"_s).ListIndex() + 1);
        form->Image1_Click(2);
        Click(u"HotLabel7"_s);
    }
    QStringList Noted() const { return Noted_Of(sample.Path()); }
};

TEST_F(Remembered, ARetestKeepsTheResultAndADeletionTakesItAlong) {
    Set(u"Khan"_s, u"Karrel = 1"_s);
    Open();
    const QString code = Code_Of(u"Khan"_s);
    Allow_A_Retest_Of_Karrel(u"Khan"_s);
    Allow_A_Retest_Of_Karrel(u"Khan"_s); // the ball is red until the list is loaded anew
    ASSERT_EQ(keeping::Takings_Of(sample.Path(), code).size(), 1);
    EXPECT_EQ(keeping::Takings_Of(sample.Path(), code)[0].status, 1);
    Click(u"HotLabel4"_s);
    Type(u"Text4"_s, u"Aishah"_s);
    Click(u"HotLabel2"_s);
    const QStringList before{u"Corrected|%1|forename"_s.arg(code), u"Retest allowed|%1|Karrel"_s.arg(code),
                             u"Retest allowed|%1|Karrel"_s.arg(code)};
    EXPECT_EQ(Noted(), before);

    shell::Menu_Counts counts;
    Form9 deleting(outside.platform, navigator, Data(), counts);
    deleting.Load();
    for (int row = 0; row < lists.Pupils_Listed; ++row)
        if (lists.Student_Code[row + 1] == code)
            Control<List_View>(deleting, u"ListView1"_s).topLevelItem(row)->setSelected(true);
    outside.boxes.Will_Answer(Answer::Yes);
    deleting.HotLabel2_Click();
    EXPECT_TRUE(keeping::Takings_Of(sample.Path(), code).isEmpty());
    keeping::Keep_Takings(sample.Path(), lists.Student_Code[1], {1}, outside.clock.now);
    sample.Run(u"ALTER TABLE Mevo_Pupils RENAME TO Away"_s);
    deleting.Forget_Deleted({lists.Student_Code[1]});
    EXPECT_EQ(keeping::Takings_Of(sample.Path(), lists.Student_Code[1]).size(), 1)
        << "nothing tells who is gone";
    EXPECT_EQ(Noted(), QStringList{u"Deleted|%1|"_s.arg(code)} + before);
}

TEST_F(Remembered, NothingWaitsForFilesThatCantBeUsed) {
    Set(u"Khan"_s, u"Karrel = 1"_s);
    Open();
    const QString code = Code_Of(u"Khan"_s);
    for (const QString& file : {keeping::Companion_Of(sample.Path()), keeping::Changes_Of(sample.Path())})
        Write_Bytes(file, "no database at all, but a longer text than its header is");
    Look();
    Allow_A_Retest_Of_Karrel(u"Khan"_s);
    Expect_Changed({u"Mevo_Pupils %1 Karrel: 1 -> 0"_s.arg(code)});
    Changes_Page told(outside.platform, navigator, Data());
    told.Load();
    const QString notice = Control<QLabel>(told, u"Notice"_s).text();
    EXPECT_TRUE(notice.contains(u"The list of changes is damaged"_s)) << notice.toStdString();
    EXPECT_TRUE(notice.contains(u"The file of earlier results is damaged"_s)) << notice.toStdString();
}

TEST_F(Remembered_Settings, WhoIsMovedIsNotedByCodeAndWhatIsCorrectedByTheFieldsNames) {
    Open();
    const QString code = Code_Of(u"Patel"_s);
    Combo(u"Combo1"_s).Set_ListIndex(Combo(u"Combo1"_s).findText(u"Patel "_s, Qt::MatchStartsWith));
    Combo(u"Combo3"_s).Set_ListIndex(0);
    Type(u"Text2"_s, u"a new word"_s);
    form->Update_Pupil_Settings();
    form->Update_Pupil_Settings(); // the same once more
    EXPECT_EQ(Noted_Of(sample.Path()), (QStringList{u"Corrected|%1|password"_s.arg(code),
                                                    u"Moved|%1|from Class 1 Oak to Universal"_s.arg(code)}));
    Combo(u"Combo5"_s).Set_ListIndex(1);
    form->Disband_Group();
    EXPECT_EQ(Noted_Of(sample.Path()).first(), u"Moved|Class 1 Oak|the whole group to Universal"_s);
}

} // namespace
} // namespace pupils
