#include "platform/preview/wmf_writer.h"

#include "platform/basics/code_page.h"
#include "platform/basics/twips.h"
#include "platform/preview/painters.h"
#include "platform/preview/text_metrics.h"

#include <QFontMetricsF>
#include <QHash>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace preview {
namespace {

// Numbers of the format: record functions, and the values that their parameters take.
enum Record : quint16 {
    End_Of_File = 0x0000,
    Save_Context = 0x001E,
    Set_Background_Mode = 0x0102,
    Set_Map_Mode = 0x0103,
    Restore_Context = 0x0127,
    Select_Object = 0x012D,
    Set_Text_Align = 0x012E,
    Delete_Object = 0x01F0,
    Set_Text_Colour = 0x0209,
    Set_Window_Origin = 0x020B,
    Set_Window_Extent = 0x020C,
    Line_To = 0x0213,
    Move_To = 0x0214,
    Create_Pen = 0x02FA,
    Create_Font = 0x02FB,
    Create_Brush = 0x02FC,
    Rectangle = 0x041B,
    Extended_Text = 0x0A32,
};

constexpr quint32 Placeable_Key = 0x9AC6CDD7;
constexpr int Placeable_Words = 11;
constexpr int Header_Words = 9;
constexpr quint16 In_Memory = 1;
constexpr quint16 Version_3 = 0x0300;
constexpr int Anisotropic = 8;
constexpr int Transparent = 1;
constexpr int Opaque = 2;
constexpr int Left_On_Baseline = 24;
constexpr int Solid = 0;
constexpr int Hollow_Brush = 1;
constexpr int No_Pen = 5;
constexpr int Normal_Weight = 400;
constexpr int Bold_Weight = 700;
constexpr qsizetype Longest_Text = 8000;

// Little-endian 16-bit words. A coordinate beyond their range goes as far as the range does.
class Words {
public:
    Words& Add(int word) {
        const int bits =
            std::clamp<int>(word, std::numeric_limits<qint16>::min(), std::numeric_limits<quint16>::max());
        bytes.append(char(bits & 0xFF)).append(char(bits >> 8 & 0xFF));
        return *this;
    }
    Words& Add_Place(int coordinate) {
        return Add(std::clamp<int>(coordinate, std::numeric_limits<qint16>::min(),
                                   std::numeric_limits<qint16>::max()));
    }
    Words& Add_Long(quint32 number) { return Add(int(number & 0xFFFF)).Add(int(number >> 16)); }
    Words& Add_Colour(const QColor& colour) {
        return Add(colour.red() | colour.green() << 8).Add(colour.blue());
    }
    Words& Add_Text(QByteArray text) {
        if (text.size() % 2 != 0) text.append('\0');
        bytes.append(text);
        return *this;
    }
    int Count() const { return int(bytes.size() / 2); }
    const QByteArray& Bytes() const { return bytes; }

private:
    QByteArray bytes;
};

struct Encoded_Text {
    QByteArray bytes;
    QList<int> steps; // from each character to the next
};

Encoded_Text Encoded(const Text_Operation& text) {
    const QFontMetricsF metrics(Font_Of(text.style));
    Encoded_Text encoded;
    double end = 0;
    int start = 0;
    for (const char32_t character : text.text.normalized(QString::NormalizationForm_C).toUcs4()) {
        const QByteArray byte = basics::To_Code_Page_1252(character);
        if (byte.isEmpty()) continue;
        if (encoded.bytes.size() == Longest_Text) break;
        end += metrics.horizontalAdvance(QString::fromUcs4(&character, 1)) * text.squeeze;
        encoded.bytes.append(byte);
        encoded.steps.append(int(std::lround(end)) - start);
        start = int(std::lround(end));
    }
    return encoded;
}

// Pens, brushes and fonts are made at their first use and kept to the end: a page needs few of them.
class Metafile {
public:
    Metafile(int width, int height) : width(width), height(height) {
        Put(Set_Map_Mode, Words().Add(Anisotropic));
        Put(Set_Window_Origin, Words().Add(0).Add(0));
        Put(Set_Window_Extent, Words().Add_Place(height).Add_Place(width));
        Put(Save_Context, Words());
        Put(Set_Text_Align, Words().Add(Left_On_Baseline));
        Add_Paper();
    }

    void Add(const Text_Operation& text) {
        const Encoded_Text encoded = Encoded(text);
        if (encoded.bytes.isEmpty()) return;
        Set_Background(Transparent);
        Select(font, Create_Font, Font_Words(text));
        Put(Set_Text_Colour, Words().Add_Colour(text.colour));
        const double angle = text.angle / 1800.0 * std::numbers::pi;
        const double ascent = Ascent(text.style);
        Words words;
        words.Add_Place(text.y + int(std::lround(ascent * std::cos(angle))));
        words.Add_Place(text.x + int(std::lround(ascent * std::sin(angle))));
        words.Add(int(encoded.bytes.size())).Add(0).Add_Text(encoded.bytes);
        for (const int step : encoded.steps)
            words.Add_Place(step);
        Put(Extended_Text, words);
    }

    void Add(const Line_Operation& line) {
        Select(pen, Create_Pen, Pen_Words(line.pen));
        Put(Move_To, Words().Add_Place(line.y1).Add_Place(line.x1));
        Put(Line_To, Words().Add_Place(line.y2).Add_Place(line.x2));
    }

    void Add(const Rectangle_Operation& rectangle) {
        Set_Background(Opaque);
        Select(pen, Create_Pen, rectangle.outline ? Pen_Words(*rectangle.outline) : No_Pen_Words());
        Select(brush, Create_Brush, Brush_Words(rectangle.fill));
        Put(Rectangle, Words()
                           .Add_Place(rectangle.y + rectangle.height)
                           .Add_Place(rectangle.x + rectangle.width)
                           .Add_Place(rectangle.y)
                           .Add_Place(rectangle.x));
    }

    QByteArray Finish() {
        // An object that is still selected can't be deleted.
        Put(Restore_Context, Words().Add(-1));
        for (int object = 0; object < objects.size(); ++object)
            Put(Delete_Object, Words().Add(object));
        Put(End_Of_File, Words());
        return Placeable_Header() + File_Header() + records.Bytes();
    }

private:
    // Some readers take the drawn part alone for the page's size, so the paper is drawn as well.
    void Add_Paper() { Add(Rectangle_Operation{0, 0, width, height, std::nullopt, QColor(Qt::white)}); }

    // Of text only; but some readers paint a solid brush half transparent as long as text is set so.
    void Set_Background(int mode) {
        if (mode != background) Put(Set_Background_Mode, Words().Add(mode));
        background = mode;
    }

    static Words Font_Words(const Text_Operation& text) {
        Words words;
        words.Add_Place(-text.style.font_size * basics::Twips_Per_Point).Add(0);
        words.Add_Place(text.angle).Add_Place(text.angle);
        words.Add(text.style.bold ? Bold_Weight : Normal_Weight);
        words.Add(0).Add(0).Add(0).Add(0); // no slant, no lines, Western characters, usual precision
        return words.Add_Text(QByteArray(text.style.fixed_pitch ? "Consolas" : "Arial") + '\0');
    }

    static Words Pen_Words(const Pen& pen) {
        return Words().Add(Solid).Add_Place(pen.width).Add(0).Add_Colour(pen.colour);
    }

    static Words No_Pen_Words() { return Words().Add(No_Pen).Add(0).Add(0).Add_Colour(Qt::black); }

    static Words Brush_Words(const std::optional<QColor>& fill) {
        return Words().Add(fill ? Solid : Hollow_Brush).Add_Colour(fill.value_or(Qt::white)).Add(0);
    }

    void Put(Record function, const Words& parameters) {
        constexpr int size_and_function = 3;
        const int words = parameters.Count() + size_and_function;
        longest_record = std::max(longest_record, words);
        records.Add_Long(quint32(words)).Add(function).Add_Text(parameters.Bytes());
    }

    void Select(int& selected, Record function, const Words& object) {
        const QByteArray description = Words().Add(function).Add_Text(object.Bytes()).Bytes();
        const auto known = objects.constFind(description);
        const int number = known == objects.cend() ? int(objects.size()) : *known;
        if (known == objects.cend()) {
            Put(function, object);
            objects.insert(description, number);
        }
        if (number != selected) Put(Select_Object, Words().Add(number));
        selected = number;
    }

    QByteArray Placeable_Header() const {
        Words words;
        words.Add_Long(Placeable_Key).Add(0);
        words.Add(0).Add(0).Add_Place(width).Add_Place(height);
        words.Add(basics::Twips_Per_Inch).Add_Long(0);
        quint16 checksum = 0;
        for (int word = 0; word < Placeable_Words - 1; ++word)
            checksum ^= quint16(quint8(words.Bytes()[2 * word]) | quint8(words.Bytes()[2 * word + 1]) << 8);
        return words.Add(checksum).Bytes();
    }

    QByteArray File_Header() const {
        Words words;
        words.Add(In_Memory).Add(Header_Words).Add(Version_3);
        words.Add_Long(quint32(Header_Words + records.Count())).Add(int(objects.size()));
        return words.Add_Long(quint32(longest_record)).Add(0).Bytes();
    }

    int width;
    int height;
    Words records;
    int longest_record = 0;
    QHash<QByteArray, int> objects;
    int background = 0;
    int font = -1;
    int pen = -1;
    int brush = -1;
};

} // namespace

QByteArray Wmf_Of(const Drawing& drawing) {
    Metafile metafile(drawing.width, drawing.height);
    for (const Operation* operation : Painted_Operations(drawing))
        std::visit([&metafile](const auto& kind) { metafile.Add(kind); }, *operation);
    return metafile.Finish();
}

} // namespace preview
