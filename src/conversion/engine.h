#pragma once

#include "platform/database/engine_handle.h"

namespace conversion {

using database::Access;
using database::Quoted;
using Statement = database::Engine_Statement;

// Its failures and those of its statements are Refusals with the engine's own words.
class Engine final : public database::Engine_Handle {
public:
    Engine(const QString& file, Access access); // the file must exist
    qint64 Number(const QString& sql) const;    // the first cell
};

} // namespace conversion
