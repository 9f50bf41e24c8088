#include "reports/profile_chart.h"

#include "platform/basics/native_path.h"
#include "platform/basics/number_text.h"
#include "platform/basics/run_time_error.h"
#include "scoring/score_conversion.h"
#include "scoring/standing.h"
#include "scoring/summary_table.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace reports {

namespace {

// The chart as a list of its columns. The bars are drawings, and no items of the list.
class Chart_Interface final : public QAccessibleWidget {
public:
    explicit Chart_Interface(Profile_Chart* chart)
        : QAccessibleWidget(chart, QAccessible::List), chart(chart) {}

    int childCount() const override { return 8; }
    QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= childCount()
                   ? nullptr
                   : QAccessible::queryAccessibleInterface(chart->Row(index + 1));
    }
    int indexOfChild(const QAccessibleInterface* item) const override {
        for (int t = 1; t <= childCount(); ++t)
            if (item && item->object() == chart->Row(t)) return t - 1;
        return -1;
    }

private:
    Profile_Chart* chart;
};

QAccessibleInterface* Interface_Of(const QString&, QObject* object) {
    if (auto* chart = qobject_cast<Profile_Chart*>(object)) return new Chart_Interface(chart);
    if (auto* row = qobject_cast<Chart_Row*>(object))
        return new QAccessibleWidget(row, QAccessible::ListItem);
    return nullptr;
}

} // namespace

Profile_Chart::Profile_Chart(const QString& name, const Chart_Data& data, QWidget* parent)
    : QFrame(parent),
      state(data.state),
      pupils(data.pupils),
      scores(data.scores),
      norms(data.norms),
      boxes(data.boxes) {
    QAccessible::installFactory(Interface_Of);
    setObjectName(name);
    setAccessibleName(u"Cognitive Profile"_s);
    setFixedSize(Size);
    for (int t = 1; t <= 8; ++t) {
        const auto i = static_cast<std::size_t>(t);
        accuracy[i] = Make_Bar(u"Shape%1"_s.arg(t), Measure::Accuracy, this);
        time[i] = Make_Bar(u"Shape12(%1)"_s.arg(t - 1), Measure::Time, this);
        Shape(t)->setGeometry(Column_Left(t), 0, Column_Width, 0);
        Time_Shape(t)->setGeometry(Column_Left(t) + Column_Width / 2, 0, Column_Width / 2, 0);
        // An accuracy bar without a height is there all the same, as its test's button asks for it.
        Time_Shape(t)->hide();
        constexpr int around = 5;
        rows[i] = new Chart_Row(u"Row%1"_s.arg(t), this);
        rows[i]->setGeometry(Column_Left(t) - around, 0, Column_Width + 2 * around, Chart_Height);
        connect(rows[i], &Chart_Row::Left_By, this, [this, t](int key) { Move_From(t, key); });
        connect(rows[i], &Chart_Row::Focused, this, [this, t] { Tell_Tip(t); });
        connect(rows[i], &Chart_Row::Pressed, this, [this, t] { Q_EMIT Asked_Why(t); });
    }
    Row(1)->Make_Stop(true);
    values = new Column_Values(u"Values"_s, this);
    Image12 = new Terminated_Mark(u"Image12"_s, this);
    Image13 = new Terminated_Mark(u"Image13"_s, this);
}

void Profile_Chart::Move_From(int t, int key) {
    int to = t;
    if (key == Qt::Key_Home)
        to = 1;
    else if (key == Qt::Key_End)
        to = 8;
    else
        to += key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    to = std::clamp(to, 1, 8);
    if (to == t) return;
    Row(to)->Make_Stop(true);
    Row(to)->setFocus(Qt::TabFocusReason);
    Row(t)->Make_Stop(false);
}

int Profile_Chart::Current_Test() const {
    for (int t = 1; t <= 8; ++t)
        if (Row(t)->Is_Stop()) return t;
    return 1;
}

void Profile_Chart::Let_Keys_In(bool let) {
    for (int t = 1; t <= 8; ++t)
        Row(t)->setFocusPolicy(let && Row(t)->Is_Stop() ? Qt::TabFocus : Qt::NoFocus);
}

int Profile_Chart::Column_At(int x) const {
    for (int t = 1; t <= 8; ++t)
        if (x >= Column_Left(t) && x < Column_Left(t) + Column_Width) return t;
    return 0;
}

void Profile_Chart::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const int t = Column_At(event->position().toPoint().x())) Q_EMIT Asked_Why(t);
}

bool Profile_Chart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QFrame::event(event);
    if (const int t = Column_At(static_cast<QHelpEvent*>(event)->pos().x()))
        Tell_Tip(t);
    else
        QToolTip::hideText();
    return true;
}

void Profile_Chart::Tell_Tip(int t) {
    if (!values_shown || state.Current_Pupil == 0) return;
    constexpr int down = 20;
    QToolTip::showText(mapToGlobal(QPoint(Column_Left(t) + Column_Width, down)), Tip_For(t), this);
}

void Profile_Chart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(rect(), ground);
}

static QString Ground_File(const Report_State& state) {
    const QString scale = state.Chart_Mode == "Z"_L1 ? u"z"_s : u"p"_s;
    if (state.Chart_Background == "GREY"_L1) return scale + u"_grey.bmp"_s;
    if (state.Chart_Background == "WHITE"_L1) return scale + u"_white.bmp"_s;
    return {};
}

void Profile_Chart::Load_Ground(const QString& app_path) {
    const QString name = Ground_File(state);
    if (name.isEmpty()) return;
    const QString file = app_path + u"\\system\\"_s + name;
    const bool is_loaded = ground.load(basics::Native_Path(file));          // or there is none any more
    setAttribute(Qt::WA_OpaquePaintEvent, is_loaded && !ground.hasAlpha()); // nothing beneath need be painted
    if (!is_loaded)
        throw basics::Run_Time_Error(basics::errors::File_Not_Found, u"Mevo"_s, u"File not found: "_s + file);
    update();
}

static Eight_Centiles Raw_Centiles(const scoring::Score_Store& scores) {
    Eight_Centiles centiles;
    for (int t = 1; t <= 8; ++t)
        centiles[static_cast<std::size_t>(t - 1)] = scores.Raw_Centile[t];
    return centiles;
}

static Eight_Centiles Time_Centiles(const scoring::Score_Store& scores) {
    Eight_Centiles centiles;
    for (int t = 1; t <= 8; ++t)
        centiles[static_cast<std::size_t>(t - 1)] = scores.Time_Centile[t].As_Integer();
    return centiles;
}

static void Place(QFrame* bar, const Bar& place) {
    bar->setGeometry(bar->x(), place.Top, bar->width(), place.Height);
}

static void Stand_On_Centiles(QFrame* bar, int centile) {
    Place(bar, Centile_Bar(centile));
    if (centile > 0) bar->show(); // 0 leaves a bar as it was, at no height
}

void Profile_Chart::Show_Bars() {
    if (state.Chart_Mode == "Z"_L1)
        Show_ZScore_Bars(Raw_Centiles(scores));
    else
        Show_Centile_Bars(Raw_Centiles(scores));
    if (state.Show_Time_Bars) Show_Time_Bars();
    Stand_Marks_On_Bars();
}

void Profile_Chart::Show_Time_Bars() {
    if (state.Chart_Mode == "Z"_L1)
        Show_Time_ZScore_Bars(Time_Centiles(scores));
    else
        Show_Time_Centile_Bars(Time_Centiles(scores));
}

void Profile_Chart::Show_Centile_Bars(const Eight_Centiles& centiles) {
    state.Chart_Mode = u"P"_s;
    for (int t = 1; t <= 8; ++t)
        Stand_On_Centiles(Shape(t), centiles[static_cast<std::size_t>(t - 1)]);
}

void Profile_Chart::Show_Time_Centile_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t)
        Stand_On_Centiles(Time_Shape(t), centiles[static_cast<std::size_t>(t - 1)]);
}

void Profile_Chart::Convert_Z_Score_To_Bar_Height(double z, qint16& height) {
    if (const auto found = Bar_Height_For(z)) {
        height = static_cast<qint16>(*found);
        return;
    }
    boxes.Ask(desktop::Box_Style::Information, u"Error"_s,
              u"There has been an error calculating the bar height"_s);
}

Bar Profile_Chart::ZScore_Place(qint16 centile) {
    qint16 height = 0;
    Convert_Z_Score_To_Bar_Height(scoring::Centile_To_ZScore(centile), height);
    return ZScore_Bar(centile, height);
}

void Profile_Chart::Show_ZScore_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t) {
        const qint16 centile = centiles[static_cast<std::size_t>(t - 1)];
        Place(Shape(t), ZScore_Place(centile));
        if (centile > 0) Shape(t)->show();
    }
}

// On this scale Set_Bar_Widths alone decides whether time bars are seen.
void Profile_Chart::Show_Time_ZScore_Bars(const Eight_Centiles& centiles) {
    for (int t = 1; t <= 8; ++t)
        Place(Time_Shape(t), ZScore_Place(centiles[static_cast<std::size_t>(t - 1)]));
}

void Profile_Chart::Set_Bar_Widths(bool show_time, int width) {
    for (int t = 1; t <= 8; ++t) {
        Time_Shape(t)->setVisible(show_time);
        Shape(t)->resize(width, Shape(t)->height());
    }
}

void Profile_Chart::Reset_Bars() {
    constexpr Bar at_rest{356, 0};
    for (int t = 1; t <= 8; ++t) {
        Place(Shape(t), at_rest);
        Shape(t)->stackUnder(values); // in front of all but the words
        Place(Time_Shape(t), at_rest);
    }
}

void Profile_Chart::Clear_Bar_Arrays() {
    for (int t = 1; t <= 8; ++t) {
        scores.Raw_Centile[t] = 0;
        Shape(t)->resize(Shape(t)->width(), 0);
    }
}

void Profile_Chart::Hide_Test_Bars(int t) {
    Shape(t)->hide();
    Shape(t)->stackUnder(values);
    Time_Shape(t)->hide();
}

void Profile_Chart::Hide_Untaken_Bars(int p) {
    for (int t = 1; t <= 8; ++t)
        if (pupils.Test_Status[t][p] == 0) Hide_Test_Bars(t);
}

void Profile_Chart::TerminatedTests() {
    Image12->setVisible(scores.Tolvens_Terminated);
    Image13->setVisible(scores.Friends_Terminated);
    Stand_Marks_On_Bars();
}

void Profile_Chart::Stand_Marks_On_Bars() {
    constexpr int above = 18;
    for (const int t : {scoring::test_index::Tolvens, scoring::test_index::Bliks_Friends}) {
        const QFrame* bar = Shape(t);
        Terminated_Mark* mark = Mark(t);
        mark->move(bar->x() + (bar->width() - mark->width()) / 2, bar->y() - above);
        mark->raise();
        mark->update();
    }
}

bool Profile_Chart::Is_Marked(int t) const {
    const Terminated_Mark* mark = Mark(t);
    return mark && !mark->isHidden();
}

QString Profile_Chart::Words_For(int t) const {
    const bool z = state.Chart_Mode == "Z"_L1;
    const auto cell = [this, t](int number) {
        return state.summary(scoring::Summary_Row(t), number).simplified();
    };
    QString words = scoring::Test_At(t).Test_Name + u": "_s;
    if (pupils.Test_Status[t][state.Current_Pupil] == 0)
        return words + In_Words(scoring::Standing_Of(t, state.Current_Pupil, pupils, scores, norms));
    namespace column = scoring::summary_column;
    const QString score = cell(z ? column::ZScore : column::Centile);
    words += score.isEmpty() ? In_Words(scoring::Standing_Of(t, state.Current_Pupil, pupils, scores, norms))
                             : (z ? u"z-score "_s : u"centile "_s) + score;
    if (const QString age = cell(column::Test_Age); !age.isEmpty()) words += u", age at test "_s + age;
    if (const QString time = cell(z ? column::Time_ZScore : column::Time_Centile);
        state.Show_Time_Bars && !time.isEmpty())
        words += (z ? u", time z-score "_s : u", time centile "_s) + time;
    return words + (Is_Marked(t) ? u", terminated"_s : QString());
}

void Profile_Chart::Describe() {
    for (int t = 1; t <= 8; ++t) {
        Row(t)->Tell(Words_For(t));
        Row(t)->setAccessibleDescription(Is_Marked(t) ? Mark(t)->accessibleDescription() : QString());
    }
    Lay_Values();
}

void Profile_Chart::Show_Values(bool shown) {
    values_shown = shown;
    values->setVisible(shown);
}

// A mark near the chart's upper edge has its letter inside the bar.
int Profile_Chart::Mark_Bottom(int t) const {
    return Is_Marked(t) ? std::max(0, Mark(t)->y()) + Mark(t)->height() / 2 : 0;
}

void Profile_Chart::Put_Value(const QFrame* bar, int centile, int mark_bottom,
                              QList<Column_Text>& texts) const {
    const bool z = state.Chart_Mode == "Z"_L1;
    const bool hangs = z && centile < 50;
    texts.append({Value_Place(bar->geometry(), hangs, hangs ? 0 : mark_bottom),
                  z ? basics::Two_Decimals(scoring::Centile_To_ZScore(centile)) : QString::number(centile),
                  true});
}

// The bars have their places by now; no value moves one.
void Profile_Chart::Lay_Values() {
    QList<Column_Text> texts;
    for (int t = 1; t <= 8; ++t) {
        const auto standing = scoring::Standing_Of(t, state.Current_Pupil, pupils, scores, norms);
        if (standing != scoring::Standing::Scored) {
            texts.append({Foot_Place(Column_Left(t), Column_Width), In_Words(standing), false});
            continue;
        }
        Put_Value(Shape(t), scores.Raw_Centile[t], Mark_Bottom(t), texts);
        const int time_centile = scores.Time_Centile[t].As_Integer();
        if (state.Show_Time_Bars && time_centile > 0) Put_Value(Time_Shape(t), time_centile, 0, texts);
    }
    values->Show_Texts(texts);
}

QString Profile_Chart::Tip_For(int t) const {
    namespace column = scoring::summary_column;
    static const std::pair<QString, int> parts[] = {
        {u"Tested: %1"_s, column::Test_Date},
        {u"Age at test: %1"_s, column::Test_Age},
        {u"Raw score: %1"_s, column::Score},
        {u"Centile: %1"_s, column::Centile},
        {u"Standard score: %1"_s, column::Standard_Score},
        {u"Z-score: %1"_s, column::ZScore},
    };
    const auto cell = [this, t](int number) {
        return state.summary(scoring::Summary_Row(t), number).simplified();
    };
    QStringList lines{scoring::Test_At(t).Test_Name};
    const auto standing = scoring::Standing_Of(t, state.Current_Pupil, pupils, scores, norms);
    if (standing != scoring::Standing::Scored) lines.append(In_Words(standing));
    for (const auto& [words, number] : parts)
        if (!cell(number).isEmpty()) lines.append(words.arg(cell(number)));
    if (standing == scoring::Standing::Scored)
        lines.append(state.Time_Scores_Ready
                         ? u"Time: %1 sec, centile %2"_s.arg(cell(column::Time), cell(column::Time_Centile))
                         : u"Time: not read yet"_s);
    // A text of this kind is never taken for mark-up.
    return u"<p style=\"white-space:pre\">"_s + lines.join(u'\n').toHtmlEscaped() + u"</p>"_s;
}

} // namespace reports
