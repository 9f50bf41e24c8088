#pragma once

#include "foundation/schema.h"
#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "support/error_number.h"
#include "support/page_fixture.h"
#include "support/table_changes.h"

#include <QLineEdit>
#include <memory>

namespace pupils {

using namespace Qt::StringLiterals;
using namespace test_support;
using desktop::Answer;
using desktop::Box_Style;

// What the file gains by a pupil who is registered or imported, in words of Changes(). The details, as SQL
// has them and with bars between, are the cells of New_Pupil_Columns.
inline const QStringList New_Pupil_Columns{u"Surname"_s,     u"Forename"_s, u"Sex"_s,      u"DOB"_s,
                                           u"Group_Class"_s, u"Password"_s, u"Dob_as_pw"_s};
inline QStringList Rows_Of_A_New_Pupil(const QString& code, const QString& details) {
    const QString pupil = u"Mevo_Pupils "_s + code;
    const QString quoted_code = u'\'' + code + u'\'';
    Table_Rows rows{{pupil, {{u"StudentCode"_s, quoted_code}, {u"Show_Name"_s, u"1"_s}}}};
    for (int i = 0; i < New_Pupil_Columns.size(); ++i)
        rows[pupil][New_Pupil_Columns[i]] = details.split(u'|')[i];
    for (const foundation::Test_Tables& test : foundation::Tests_In_Order()) {
        rows[pupil][test.status] = rows[pupil][test.status + u"_age"_s] = u"0"_s;
        rows[test.data_table + u' ' + code][u"StudentCode"_s] = quoted_code;
    }
    return Changes({}, rows);
}

// A page that changes pupils' records, and what the database held when the test last looked.
class Record_Page : public Page_Fixture {
protected:
    Record_Data Data() { return {installation, lists, records}; }
    void Show(shell::Page& shown) {
        Show_On_Screen(shown);
        page = &shown;
    }

    shell::Click_Combo& Combo(const QString& name) { return Control<shell::Click_Combo>(*page, name); }
    // Chooses an entry of a list as the user does.
    void Choose(const QString& combo, const QString& entry) {
        const int index = Combo(combo).findText(entry);
        ASSERT_GE(index, 0) << entry.toStdString();
        Combo(combo).Set_ListIndex(index);
    }
    QString Chosen(const QString& combo) { return Combo(combo).currentText(); }
    void Type(const QString& entry, const QString& text) { Control<QLineEdit>(*page, entry).setText(text); }
    QString Typed(const QString& entry) { return Control<QLineEdit>(*page, entry).text(); }
    void Click(const QString& name) { test_support::Click(*page, name); }
    QString Caption(const QString& name) { return test_support::Caption(*page, name); }
    bool Enabled(const QString& name) { return test_support::Enabled(*page, name); }
    QStringList Disabled(const QStringList& names) {
        QStringList disabled;
        for (const QString& name : names)
            if (!Enabled(name)) disabled.append(name);
        return disabled;
    }
    bool Shown(const QString& name) { return test_support::Shown(*page, name); }

    void Look() { seen = Read_Tables(sample); }
    // What has changed in the file since the last look.
    QStringList Changed() { return Changes(seen, Read_Tables(sample)); }
    // In any order.
    void Expect_Changed(QStringList expected) {
        QStringList changed = Changed();
        changed.sort();
        expected.sort();
        EXPECT_EQ(changed, expected);
    }
    void Expect_Box(Box_Style style, const QString& title, const QString& text) {
        outside.boxes.Expect_Last(style, title, text);
    }

    QString Code_Of(const QString& surname) {
        return sample.Value(u"SELECT StudentCode FROM Mevo_Pupils WHERE Surname = '%1'"_s.arg(
            QString(surname).replace(u"'"_s, u"''"_s)));
    }
    QString Pupils() { return sample.Value(u"SELECT count(*) FROM Mevo_Pupils"_s); }
    void Set(const QString& surname, const QString& what) {
        sample.Run(u"UPDATE Mevo_Pupils SET %1 WHERE Surname = '%2'"_s.arg(what, surname));
    }

    scoring::Pupil_Lists lists;
    Pupil_Records records;
    shell::Page* page = nullptr;
    Table_Rows seen;
};

// A page that fills itself once it has been painted.
template<class Form>
class Page_Filled_Later : public Record_Page {
protected:
    void Load() {
        form = std::make_unique<Form>(outside.platform, navigator, Data());
        Show(*form);
        form->Load();
    }
    void Open() {
        Load();
        form->Timer1_Timer();
        Look();
    }

    std::unique_ptr<Form> form;
};

} // namespace pupils
