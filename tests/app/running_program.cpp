#include "app/running_program.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace test_support {

Running_Program::Running_Program(int pupils, const QSize& screen) : sample(pupils) {
    outside.ini.values[u"SETTINGS/database_sharepath"_s] = sample.Folder();
    outside.files.names[sample.Folder() + u"\\Mevo05EmptyDatabase.mdb"_s] = u"Mevo05EmptyDatabase.mdb"_s;
    program.Window().resize(screen);
    program.Window().show();
}

void Running_Program::Start() {
    program.Start(QStringLiteral(MEVO_ASSETS));
    Follow_To(u"Form77"_s);
}

static bool Awaits_A_Timer(const QWidget& page) {
    for (const auto* timer : page.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly))
        if (timer->isActive()) return true;
    return false;
}

void Running_Program::Follow_To(const QString& page) {
    const auto there = [&] {
        const shell::Page* current = program.Window().Current();
        return current && current->objectName() == page && current->isVisible() && !Awaits_A_Timer(*current);
    };
    if (!Wait_Until(there)) throw std::runtime_error("no page " + page.toStdString());
}

} // namespace test_support
