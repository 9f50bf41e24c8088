#include "platform/grid/markup.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace grid {
namespace {

class Parser {
public:
    explicit Parser(int page) : page(page) {}

    void Add_Markup(QStringView markup) {
        rest = markup;
        while (!rest.isEmpty()) {
            if (Take_Code()) continue;
            Write(rest.first(1));
            rest = rest.sliced(1);
        }
    }

    void Write(QStringView text) {
        if (text.isEmpty()) return;
        std::vector<Text_Run>& runs = line.runs;
        if (!runs.empty() && runs.back().font == font && runs.back().side == side)
            runs.back().text += text;
        else
            runs.push_back({text.toString(), font, side});
    }

    std::vector<Text_Line> Lines() {
        End_Line();
        return std::move(lines);
    }

private:
    struct Code {
        QStringView letters;
        bool (Parser::*take)(); // the rest stands behind the letters; false if the code is broken
    };

    bool Take_Code() {
        static const Code codes[] = {
            {u"/fn", &Parser::Set_Name},  {u"/fz", &Parser::Set_Size},   {u"/fb1", &Parser::Set_Bold},
            {u"/fb0", &Parser::Set_Fine}, {u"/c", &Parser::Centre},      {u"/r", &Parser::To_The_Right},
            {u"/n", &Parser::New_Line},   {u"/p", &Parser::Page_Number},
        };
        for (const Code& code : codes) {
            if (!rest.startsWith(code.letters)) continue;
            const QStringView before = rest;
            rest = rest.sliced(code.letters.size());
            if ((this->*code.take)()) return true;
            rest = before;
        }
        return false;
    }

    std::optional<QString> Quoted_Value() {
        const qsizetype end = rest.startsWith(u'"') ? rest.indexOf(u'"', 1) : -1;
        if (end < 0) return {};
        const QString value = rest.sliced(1, end - 1).toString();
        rest = rest.sliced(end + 1);
        return value;
    }

    bool Set_Name() {
        const auto name = Quoted_Value();
        if (!name || name->isEmpty()) return false;
        font.name = *name;
        return true;
    }

    bool Set_Size() {
        const auto value = Quoted_Value();
        const double size = value ? value->toDouble() : 0;
        if (!(size > 0 && size <= Largest_Size)) return false;
        font.size = size;
        return true;
    }

    bool Set_Bold() {
        font.bold = true;
        return true;
    }

    bool Set_Fine() {
        font.bold = false;
        return true;
    }

    bool Centre() {
        side = Side::Centre;
        return true;
    }

    bool To_The_Right() {
        side = Side::Right;
        return true;
    }

    bool New_Line() {
        End_Line();
        return true;
    }

    bool Page_Number() {
        Write(QString::number(page));
        return true;
    }

    void End_Line() {
        line.font = font;
        lines.push_back(std::move(line));
        line = {};
        side = Side::Left;
    }

    static constexpr double Largest_Size = 400; // points: a line of the sheet's height is no text any more

    QStringView rest;
    int page;
    Print_Font font;
    Side side = Side::Left;
    Text_Line line;
    std::vector<Text_Line> lines;
};

} // namespace

Marked_Text& Marked_Text::Add_Markup(const QString& markup) {
    text += markup;
    return *this;
}

Marked_Text& Marked_Text::Add_Value(const QString& value) {
    values.push_back({text.size(), value.size()});
    text += value;
    return *this;
}

std::vector<Text_Line> Parse_Markup(const QString& markup, int page, const std::vector<Value_Span>& values) {
    if (markup.isEmpty()) return {};
    const QStringView whole(markup);
    Parser parser(page);
    qsizetype at = 0;
    for (const Value_Span& value : values) {
        parser.Add_Markup(whole.sliced(at, value.from - at));
        parser.Write(whole.sliced(value.from, value.length));
        at = value.from + value.length;
    }
    parser.Add_Markup(whole.sliced(at));
    return parser.Lines();
}

} // namespace grid
