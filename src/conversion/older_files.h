#pragma once

#include "conversion/jet_source.h"

#include <QString>

namespace conversion {

// What a page asks when the user chose a file of the older format.
class Older_Files {
public:
    virtual ~Older_Files() = default;

    virtual bool Is_One(const QString& file) = 0;
    // Makes a converted copy of a file where none is yet. Throws a Refusal, and nothing is there then.
    virtual void Convert(const QString& file, const QString& copy, const Watcher& watcher) = 0;
};

class Jet_Files final : public Older_Files {
public:
    bool Is_One(const QString& file) override;
    void Convert(const QString& file, const QString& copy, const Watcher& watcher) override;
};

// The copy's name: "_converted" before the extension.
QString Converted_Name(const QString& file);

} // namespace conversion
