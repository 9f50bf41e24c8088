#pragma once

#include <QString>
#include <QStringList>

// Places that refuse to be written, made of what the system offers. Where it offers nothing, a test says so
// and is skipped.
namespace test_support {

// A disk of its own, of that many kilobytes. Only an account that may mount has one.
class Small_Disk {
public:
    explicit Small_Disk(int kilobytes);
    ~Small_Disk();
    Q_DISABLE_COPY(Small_Disk)

    bool Is_There() const { return !folder.isEmpty(); }
    const QString& Folder() const { return folder; }
    void Fill_Up_To(int free_kilobytes) const;
    void Allow_Reading_Only() const;

private:
    QString folder;
};

// Limits the size of the files that this process writes, as a quota does.
class Bounded_Files {
public:
    explicit Bounded_Files(qint64 bytes);
    ~Bounded_Files();
    Q_DISABLE_COPY(Bounded_Files)

    bool Is_There() const { return there; }

private:
    bool there = false;
};

// Works as an account that owns nothing, where the process may change to one; an account without special
// rights stays what it is.
class Plain_Account {
public:
    Plain_Account();
    ~Plain_Account();
    Q_DISABLE_COPY(Plain_Account)

    bool Is_There() const { return there; } // files' rights bind it

private:
    bool there = false;
    bool changed = false;
};

} // namespace test_support
