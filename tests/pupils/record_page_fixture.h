#pragma once

#include "pupils/pupil_records.h"
#include "shell/conventions/click_combo.h"
#include "shell/conventions/page.h"
#include "support/error_number.h"
#include "support/page_fixture.h"
#include "support/table_changes.h"

#include <QLineEdit>
#include <memory>

namespace pupils {

// A page that changes pupils' records, and what the database held when the test last looked.
class Record_Page : public test_support::Page_Fixture {
protected:
    Record_Data Data() { return {installation, lists, records}; }
    void Show(shell::Page& shown) {
        Show_On_Screen(shown);
        page = &shown;
    }

    shell::Click_Combo& Combo(const QString& name) {
        return test_support::Control<shell::Click_Combo>(*page, name);
    }
    // Chooses an entry of a list as the user does.
    void Choose(const QString& combo, const QString& entry) {
        const int index = Combo(combo).findText(entry);
        ASSERT_GE(index, 0) << entry.toStdString();
        Combo(combo).Set_ListIndex(index);
    }
    QString Chosen(const QString& combo) { return Combo(combo).currentText(); }
    void Type(const QString& entry, const QString& text) {
        test_support::Control<QLineEdit>(*page, entry).setText(text);
    }
    QString Typed(const QString& entry) { return test_support::Control<QLineEdit>(*page, entry).text(); }
    void Click(const QString& name) { test_support::Click(*page, name); }
    QString Caption(const QString& name) { return test_support::Caption(*page, name); }
    bool Enabled(const QString& name) { return test_support::Enabled(*page, name); }
    bool Shown(const QString& name) { return test_support::Shown(*page, name); }

    void Look() { seen = test_support::Read_Tables(sample); }
    // What has changed in the file since the last look.
    QStringList Changed() { return test_support::Changes(seen, test_support::Read_Tables(sample)); }
    // In any order.
    void Expect_Changed(QStringList expected) {
        QStringList changed = Changed();
        changed.sort();
        expected.sort();
        EXPECT_EQ(changed, expected);
    }
    void Expect_Box(desktop::Box_Style style, const QString& title, const QString& text) {
        outside.boxes.Expect_Last(style, title, text);
    }

    QString Code_Of(const QString& surname) {
        return sample.Value(QStringLiteral("SELECT StudentCode FROM Mevo_Pupils WHERE Surname = '%1'")
                                .arg(QString(surname).replace(QStringLiteral("'"), QStringLiteral("''"))));
    }

    scoring::Pupil_Lists lists;
    Pupil_Records records;
    shell::Page* page = nullptr;
    test_support::Table_Rows seen;
};

} // namespace pupils
