#pragma once

#include "printing/sheets_page.h"

#include <QList>
#include <QStringList>

namespace shell {

// What the Testing-progress chart hands over to be ticked on paper.
struct Ticks {
    struct Row {
        QString name;
        QList<bool> done; // of each test
    };
    QString title;
    QString subtitle;
    QStringList tests;
    QList<Row> rows;
};

// Draws the rows on as many sheets as they take, to be read from the wall: a box for each test, which is
// ticked where the test is done.
void Draw_Tick_List(const Ticks& ticks, const foundation::Installation& installation,
                    preview::ViewPro& sheet);

// The print preview of a tick list.
class Tick_List final : public printing::Sheets_Page {
    Q_OBJECT
public:
    // Both live longer than the page.
    Tick_List(desktop::Platform& platform, Navigator& navigator, const foundation::Installation& installation,
              const Ticks& ticks);

private:
    void Draw_Sheets() override { Draw_Tick_List(ticks, installation, ViewPro1); }
    QString Document_Name() const override { return QStringLiteral("Mevo tick list"); }

    const Ticks& ticks;
};

} // namespace shell
