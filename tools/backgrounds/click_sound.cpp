#include <QDataStream>
#include <QDir>
#include <QSaveFile>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace backgrounds {

namespace {

constexpr int Samples_Per_Second = 22050;
constexpr int Sample_Count = Samples_Per_Second * 40 / 1000;
constexpr int Bytes_Per_Sample = 2;
constexpr int Wrong_Use = 2;

constexpr double Loudness = 0.25;
constexpr double Pitch = 1300.0;  // Hz
constexpr double Attack = 0.0015; // s; a start from silence, so that the speaker doesn't crack
constexpr double Decay = 0.006;   // s

// The last stretch is drawn down to nothing, for the same reason as the attack.
double Envelope(int sample) {
    const double time = double(sample) / Samples_Per_Second;
    const double to_the_end = double(Sample_Count - 1 - sample) / Samples_Per_Second;
    return std::min(time / Attack, 1.0) * std::min(to_the_end / Attack, 1.0) * std::exp(-time / Decay);
}

qint16 Sample_At(int sample) {
    const double wave = std::sin(2.0 * std::numbers::pi * Pitch * sample / Samples_Per_Second);
    return qint16(std::lround(32767.0 * Loudness * Envelope(sample) * wave));
}

QByteArray Wave_File() {
    constexpr quint32 data_bytes = Sample_Count * Bytes_Per_Sample;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + data_bytes);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1); // plain samples, one channel
    stream << quint32(Samples_Per_Second) << quint32(Samples_Per_Second * Bytes_Per_Sample);
    stream << quint16(Bytes_Per_Sample) << quint16(8 * Bytes_Per_Sample);
    stream.writeRawData("data", 4);
    stream << data_bytes;
    for (int sample = 0; sample < Sample_Count; ++sample)
        stream << Sample_At(sample);
    return bytes;
}

void Write_Click(const QString& name) {
    QSaveFile file(name);
    const QByteArray bytes = Wave_File();
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!written)
        throw std::runtime_error(
            u"Can't write %1: %2"_s.arg(QDir::toNativeSeparators(name), file.errorString()).toStdString());
}

} // namespace

} // namespace backgrounds

int main(int argc, char** argv) {
    try {
        if (argc != 2) throw std::runtime_error("Usage: mevo-click-sound FILE");
        backgrounds::Write_Click(QString::fromLocal8Bit(argv[1]));
        return 0;
    } catch (const std::runtime_error& error) {
        QTextStream(stderr) << "mevo-click-sound: " << QString::fromUtf8(error.what()) << '\n';
        return backgrounds::Wrong_Use;
    }
}
