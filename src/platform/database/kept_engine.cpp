#include "platform/database/kept_engine.h"

namespace database {

std::unique_ptr<Engine> Kept_Engine::Take(const QString& connection_string, int timeout_seconds) {
    const auto reads = acts > 0 ? Engine::Reads::Shared : Engine::Reads::Alone;
    if (engine && engine->Serves(connection_string)) {
        engine->Set_Timeout(timeout_seconds);
    } else {
        engine.reset();
        engine = std::make_unique<Engine>(connection_string, timeout_seconds, reads);
    }
    engine->Set_Reads(reads);
    taken.push_back(engine.get());
    return std::move(engine);
}

void Kept_Engine::Keep(std::unique_ptr<Engine> used) {
    std::erase(taken, used.get());
    engine = std::move(used);
    if (letting_go_later) return;
    letting_go_later = true;
    QMetaObject::invokeMethod(
        &events,
        [this] {
            letting_go_later = false;
            if (acts == 0)
                Let_Go();
            else
                End_Shared_Lock();
        },
        Qt::QueuedConnection);
}

void Kept_Engine::Let_Go() {
    End_Shared_Lock();
    engine.reset();
}

void Kept_Engine::End_Shared_Lock() {
    for (Engine* used : taken)
        used->End_Shared_Lock();
    if (engine) engine->End_Shared_Lock();
}

Whole_Act::Whole_Act(Kept_Engine& kept) : kept(kept) {
    ++kept.acts;
}

// Where events were looked at meanwhile, nothing else would let go of the engine.
Whole_Act::~Whole_Act() {
    if (--kept.acts > 0) return;
    for (Engine* used : kept.taken)
        used->Set_Reads(Engine::Reads::Alone);
    kept.End_Shared_Lock();
    if (!kept.letting_go_later) kept.Let_Go();
}

} // namespace database
