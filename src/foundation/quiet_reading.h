#pragma once

#include "foundation/access_holder.h"

namespace foundation {

// A way to the database for what nobody's work depends on: it asks nobody. Where an Access_Holder would put
// an error to the user it goes on behind it, so that the reader meets a run-time error of its own, and the
// description is kept.
class Quiet_Reading {
public:
    explicit Quiet_Reading(desktop::Platform& outside);

    Access_Holder& Holder() { return holder; }
    bool Has_Failed() const { return !boxes.first.isEmpty(); }
    QString Why(const std::exception& met); // what was kept, or else what was met; forgets it

private:
    class Boxes final : public desktop::Message_Boxes {
    public:
        desktop::Answer Ask(desktop::Box_Style, const QString&, const QString& text) override;
        QString first;
    };

    Boxes boxes;
    desktop::Platform ports;
    Access_Holder holder;
};

} // namespace foundation
