#pragma once

#include "foundation/installation.h"
#include "shell/conventions/page.h"
#include "shell/kept_databases.h"
#include "shell/pupil_removal.h"

namespace shell {

// The page that takes a pupil who was deleted out of all copies as well, and out of archives that are chosen
// for it: a parent may ask that nothing be kept of their child.
class Form62 final : public Page {
    Q_OBJECT
public:
    Form62(desktop::Platform& platform, Navigator& navigator, foundation::Installation& installation);

    void Load() override;
    void Timer1_Timer(); // reads who is in the copies and no longer in the database

    void HotLabel1_Click(); // back to the copies
    void HotLabel2_Click(); // chooses one more archive
    void HotLabel3_Click(); // removes

private:
    void Lay_Out();
    void Tell_Helps();
    QStringList Files() const; // copies and archives, each once
    QString Why_Not(const QString& archive) const;
    void Tell_Of_Choice();
    void Remove(const Gone_Pupil& pupil);
    bool Confirmed(const Gone_Pupil& pupil);

    foundation::Installation& installation;
    QStringList archives; // chosen here
    QList<Gone_Pupil> gone;

    QTreeWidget* Pupils;
    QLabel *Label1, *Label4;
    HotLabel *HotLabel1, *HotLabel2, *HotLabel3;
};

} // namespace shell
