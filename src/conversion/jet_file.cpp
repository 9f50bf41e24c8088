#include "conversion/jet_file.h"

#include "conversion/refusal.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <array>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace conversion {

namespace {

constexpr qsizetype Name_At = 4;
constexpr qsizetype Version_At = 0x14;
constexpr char Jet_3 = 0;
constexpr char Jet_4 = 1;

// From here on the header is disguised, by a stream that is the same in every file.
constexpr qsizetype Disguise_At = 0x18;
constexpr qsizetype Disguise_Size_3 = 126;
constexpr qsizetype Disguise_Size_4 = 128;
const QByteArray Disguise_Key = QByteArray::fromHex("c7da396b");

constexpr qsizetype Page_Key_At = 0x3e; // not 0: all pages are encrypted by it
constexpr qsizetype Password_At = 0x42;
constexpr qsizetype Password_Size_3 = 20;
constexpr qsizetype Password_Size_4 = 40;
constexpr qsizetype Date_Made_At = 0x72; // the later version disguises the password by its whole days
constexpr qsizetype Header_Size = Disguise_At + Disguise_Size_4;

constexpr qint64 Page_Size_3 = 2048;
constexpr qint64 Page_Size_4 = 4096;
constexpr qint64 Fewest_Pages = 3;

// RC4. The same step puts a disguise on and takes it off.
QByteArray Undisguised(QByteArray bytes, const QByteArray& key) {
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), quint8(0));
    quint8 j = 0;
    for (int i = 0; i < 256; ++i) {
        j = static_cast<quint8>(j + state[static_cast<size_t>(i)] + static_cast<quint8>(key[i % key.size()]));
        std::swap(state[static_cast<size_t>(i)], state[j]);
    }
    quint8 i = 0;
    j = 0;
    for (char& byte : bytes) {
        j = static_cast<quint8>(j + state[++i]);
        std::swap(state[i], state[j]);
        byte = static_cast<char>(byte ^ static_cast<char>(state[static_cast<quint8>(state[i] + state[j])]));
    }
    return bytes;
}

QByteArray Header_Of(const QString& file) {
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.read(Header_Size) : QByteArray();
}

bool Begins_A_Jet_File(const QByteArray& header) {
    return header.size() == Header_Size && header.mid(Name_At).startsWith("Standard Jet DB");
}

bool Has_Password(const QByteArray& plain, char version) {
    const QByteArray password = plain.mid(Password_At, version == Jet_3 ? Password_Size_3 : Password_Size_4);
    QByteArray mask(4, '\0');
    if (version != Jet_3) {
        const double date =
            std::bit_cast<double>(qFromLittleEndian<quint64>(plain.constData() + Date_Made_At));
        if (std::fabs(date) < 1e9) qToLittleEndian<qint32>(static_cast<qint32>(date), mask.data());
    }
    for (qsizetype i = 0; i < password.size(); ++i)
        if (password[i] != mask[i % mask.size()]) return true;
    return false;
}

void Refuse_What_Is_Locked(const QByteArray& header, char version) {
    const QByteArray key = Disguise_Key;
    QByteArray plain = header;
    const qsizetype size = version == Jet_3 ? Disguise_Size_3 : Disguise_Size_4;
    plain.replace(Disguise_At, size, Undisguised(header.mid(Disguise_At, size), key));
    if (plain.mid(Page_Key_At, 4) != QByteArray(4, '\0'))
        throw Refusal(u"It is encrypted. Decrypt it in Access first."_s);
    if (Has_Password(plain, version))
        throw Refusal(u"It is protected by a database password. Take the password off in Access first."_s);
}

void Refuse_What_Is_No_File(const QFileInfo& info) {
    if (!info.exists()) throw Refusal(u"There is no such file."_s);
    if (info.isDir()) throw Refusal(u"It is a folder."_s);
    if (!info.isFile()) throw Refusal(u"It isn't a file."_s); // a pipe would be waited for
    QFile opened(info.filePath());
    if (!opened.open(QIODevice::ReadOnly)) throw Refusal(u"It can't be opened: "_s + opened.errorString());
    if (info.size() == 0) throw Refusal(u"It is empty."_s);
}

} // namespace

bool Is_Jet_File(const QString& file) {
    return QFileInfo(file).isFile() && Begins_A_Jet_File(Header_Of(file));
}

void Refuse_Unless_Convertible(const QString& file) {
    const QFileInfo info(file);
    Refuse_What_Is_No_File(info);
    const QByteArray header = Header_Of(file);
    if (header.startsWith("SQLite format 3"))
        throw Refusal(u"It has the newer format already and needs no conversion."_s);
    if (header.mid(Name_At).startsWith("Standard ACE DB"))
        throw Refusal(
            u"It was saved by Access 2007 or later. Save it there in the format of Access 2000 first."_s);
    if (!Begins_A_Jet_File(header)) throw Refusal(u"It is no Access database."_s);
    const char version = header[Version_At];
    if (version != Jet_3 && version != Jet_4)
        throw Refusal(u"It is damaged: its first page names no version that there has been."_s);
    Refuse_What_Is_Locked(header, version);
    const qint64 page = version == Jet_3 ? Page_Size_3 : Page_Size_4;
    if (info.size() % page != 0 || info.size() < Fewest_Pages * page)
        throw Refusal(u"It is cut short: %1 bytes are no whole number of pages."_s.arg(info.size()));
}

} // namespace conversion
