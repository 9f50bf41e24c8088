#pragma once

#include "platform/desktop/ports.h"
#include "reports/chart_pieces.h"
#include "reports/column_values.h"
#include "reports/profile_bars.h"
#include "reports/state/report_state.h"
#include "scoring/scoring.h"

#include <QPixmap>
#include <array>

namespace reports {

using Eight_Centiles = std::array<qint16, 8>; // tests 1 to 8

// What the chart draws, and where it tells of a fault; each lives longer than the chart.
struct Chart_Data {
    Report_State& state;
    const scoring::Pupil_Lists& pupils;
    scoring::Score_Store& scores;
    const scoring::Norm_Tables& norms;
    desktop::Message_Boxes& boxes;
};

// The chart's ground with its bars, all of them controls of their own: Shape1 to Shape8 for accuracy,
// Shape12(0) to Shape12(7) for time, Image12 and Image13 the marks of the first two tests.
// t is the test, from 1 to 8; p the place in the pupil list, from 1.
class Profile_Chart : public QFrame {
    Q_OBJECT
public:
    Profile_Chart(const QString& name, const Chart_Data& data, QWidget* parent);

    static constexpr int Column_Width = 64;
    static constexpr int Column_Pitch = 76;
    static constexpr int First_Column = 10;
    static constexpr QSize Size{616, Chart_Height};
    static int Column_Left(int t) { return First_Column + (t - 1) * Column_Pitch; }

    // The ground for the scale and shading in force, from the folder system below app_path; an unknown
    // shading leaves the ground. A missing or unreadable file is a run-time error.
    void Load_Ground(const QString& app_path);

    // From the score store, on the scale in force; Show_Bars also sets the time bars, if they are on, and the
    // marks.
    void Show_Bars();
    void Show_Time_Bars();
    void Show_Centile_Bars(const Eight_Centiles& centiles); // the scale in force becomes centiles
    void Show_Time_Centile_Bars(const Eight_Centiles& centiles);
    void Show_ZScore_Bars(const Eight_Centiles& centiles);
    void Show_Time_ZScore_Bars(const Eight_Centiles& centiles);
    // A z-score that has no height is reported in a box, and `height` stays as it was.
    void Convert_Z_Score_To_Bar_Height(double z, qint16& height);
    void Set_Bar_Widths(bool show_time, int width); // pixels, of the accuracy bars
    void Reset_Bars();
    void Clear_Bar_Arrays();
    void Hide_Test_Bars(int t);
    void Hide_Untaken_Bars(int p);

    // Only here is it decided which marks are seen: a batch report leaves the flags of the last pupil that
    // it scored.
    void TerminatedTests();
    void Stand_Marks_On_Bars();

    // What the bars show, in words, for a reader who doesn't see them; and the values that stand beside them.
    void Describe();
    void Show_Values(bool shown); // and why columns have none; with the tips
    int Current_Test() const;     // the column that the Tab key stops at
    // While something stands before the chart the keys don't stop at its columns.
    void Let_Keys_In(bool let);

    bool Has_Bar(int t) const { return !Shape(t)->isHidden(); } // also one of no height
    Terminated_Mark* Image12;
    Terminated_Mark* Image13;
    Chart_Row* Row(int t) const { return rows[static_cast<std::size_t>(t)]; }

Q_SIGNALS:
    void Asked_Why(int t); // by a double click on a column, or by a key on it

protected:
    bool event(QEvent* event) override; // the tips
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QFrame* Shape(int t) const { return accuracy[static_cast<std::size_t>(t)]; }
    QFrame* Time_Shape(int t) const { return time[static_cast<std::size_t>(t)]; } // Shape12(t - 1)
    // Of the first two tests; none of any other.
    Terminated_Mark* Mark(int t) const { return t == 1 ? Image12 : t == 2 ? Image13 : nullptr; }
    bool Is_Marked(int t) const; // as ended early
    Bar ZScore_Place(qint16 centile);
    QString Words_For(int t) const; // a row of the chart
    void Move_From(int t, int key);
    int Column_At(int x) const; // 0 between the columns
    void Tell_Tip(int t);
    QString Tip_For(int t) const;
    void Lay_Values();
    void Put_Value(const QFrame* bar, int centile, int mark_bottom, QList<Column_Text>& texts) const;
    int Mark_Bottom(int t) const;

    Report_State& state;
    const scoring::Pupil_Lists& pupils;
    scoring::Score_Store& scores;
    const scoring::Norm_Tables& norms;
    desktop::Message_Boxes& boxes;

    std::array<QFrame*, 9> accuracy{};
    std::array<QFrame*, 9> time{};
    std::array<Chart_Row*, 9> rows{};
    Column_Values* values;
    bool values_shown = true;
    QPixmap ground;
};

} // namespace reports
