#pragma once

#include "platform/database/engine_handle.h"

namespace conversion {

using database::Access;
using Statement = database::Engine_Statement;

// Failures of it and of its statements are Refusals with the engine's words.
class Engine final : public database::Engine_Handle {
public:
    Engine(const QString& file, Access access); // the file must exist
    qint64 Number(const QString& sql) const;    // the first cell
};

// A name for a statement, whatever it holds.
QString Quoted(const QString& name);

} // namespace conversion
