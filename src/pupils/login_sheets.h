#pragma once

#include "platform/desktop/ports.h"
#include "platform/preview/view_pro.h"

#include <QList>
#include <QString>

namespace pupils {

// How a pupil logs in to the tests.
struct Login {
    QString user_id;
    QString surname;
    QString forename;
    QString born = {}; // dd/mm/yyyy
    QString password = {};
    bool by_birthday = false; // the date of birth in place of the password
    bool on_list = true;      // the Login List offers their name
};

struct Class_Logins {
    QString group;
    bool on_list = true;
    QList<Login> pupils; // in the order in which they are printed
};

// Both begin a sheet for each class.

// Eight cards a sheet, to be cut out along the dashed lines and handed out.
void Draw_Login_Cards(const QList<Class_Logins>& classes, const QString& school, preview::ViewPro& sheet);

// The teacher's list of the same logins.
void Draw_Class_Sheets(const QList<Class_Logins>& classes, const QString& school, const desktop::Clock& clock,
                       preview::ViewPro& sheet);

} // namespace pupils
