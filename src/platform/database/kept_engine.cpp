#include "platform/database/kept_engine.h"

namespace database {

std::unique_ptr<Engine> Kept_Engine::Take(const QString& connection_string, int timeout_seconds) {
    if (engine && engine->Serves(connection_string)) {
        engine->Set_Timeout(timeout_seconds);
        return std::move(engine);
    }
    engine.reset();
    return std::make_unique<Engine>(connection_string, timeout_seconds);
}

void Kept_Engine::Keep(std::unique_ptr<Engine> used) {
    engine = std::move(used);
    if (letting_go_later) return;
    letting_go_later = true;
    QMetaObject::invokeMethod(
        &events,
        [this] {
            letting_go_later = false;
            Let_Go();
        },
        Qt::QueuedConnection);
}

void Kept_Engine::Let_Go() {
    engine.reset();
}

} // namespace database
