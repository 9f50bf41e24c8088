#pragma once

#include <QString>
#include <stdexcept>

namespace conversion {

// Why a file isn't converted, in a sentence or two for the user that doesn't name the file.
class Refusal : public std::runtime_error {
public:
    explicit Refusal(const QString& why) : std::runtime_error(why.toStdString()) {}
    QString Why() const { return QString::fromUtf8(what()); }
};

} // namespace conversion
