#pragma once

#include "platform/database/engine_handle.h"

namespace conversion {

using database::Access;
using database::Quoted;
using Statement = database::Engine_Statement;

// Failures of it and of its statements are Refusals with the engine's words.
class Engine final : public database::Engine_Handle {
public:
    Engine(const QString& file, Access access); // the file must exist
    qint64 Number(const QString& sql) const;    // the first cell
};

} // namespace conversion
