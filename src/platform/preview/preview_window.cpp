#include "platform/preview/preview_window.h"

#include "platform/basics/twips.h"
#include "platform/preview/page_copy.h"
#include "platform/preview/painters.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace preview {
namespace {

constexpr int Ground_Around_Sheet = 18; // pixels
constexpr int Shadow_Depth = 6;
constexpr int Shadow_Darkness = 14;
constexpr int Line_Scroll = 40;
constexpr int Mark_Width = 90; // twips
constexpr int Enlargements[] = {100, 150, 200};

const QColor Sheet_Edge(0x8A, 0x90, 0x96);

// A soft edge to the right and below, so that the sheet lies on its ground.
void Paint_Shadow(QPainter& painter, const QRect& sheet) {
    for (int depth = Shadow_Depth; depth > 0; --depth)
        painter.fillRect(sheet.adjusted(depth, depth, depth, depth), QColor(0, 0, 0, Shadow_Darkness));
}

QString Words_On(const Drawing& sheet) {
    QStringList texts;
    for (const Operation* operation : Painted_Operations(sheet))
        if (const auto* line = std::get_if<Text_Operation>(operation)) texts.append(line->text);
    return texts.join(u' ');
}

// To a screen reader it is a document, whose words its description has.
QAccessibleInterface* Interface_Of(const QString&, QObject* object) {
    auto* window = qobject_cast<Preview_Window*>(object);
    return window ? new QAccessibleWidget(window, QAccessible::Document) : nullptr;
}

} // namespace

Preview_Window::Preview_Window(ViewPro& document, desktop::Clipboard& clipboard, QWidget* parent)
    : QAbstractScrollArea(parent), document(document), clipboard(clipboard) {
    QAccessible::installFactory(Interface_Of);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(u"Print preview"_s);
    viewport()->setCursor(Qt::OpenHandCursor);
    horizontalScrollBar()->setSingleStep(Line_Scroll);
    verticalScrollBar()->setSingleStep(Line_Scroll);
    document.On_Show = [window = QPointer<Preview_Window>(this)] {
        if (window) window->Show_Output();
    };
}

void Preview_Window::Show_Output() {
    shown_page = std::clamp(shown_page, 1, std::max(1, document.PageCount()));
    sheet = document.PageCount() > 0 ? document.Page(shown_page) : Drawing{};
    Fit_Scroll_Bars();
    Tell_Assistive_Tools();
    viewport()->update();
}

void Preview_Window::Set_ZoomPercent(int percent) {
    chosen_zoom = std::max(1, percent);
    if (is_width_fitted)
        zoom = chosen_zoom; // seen when the width is fitted no more
    else
        Zoom_To(chosen_zoom, {viewport()->width() / 2, 0}); // reading goes on from the top
}

void Preview_Window::Set_ShownPage(int page) {
    const int before = shown_page;
    shown_page = page;
    Show_Output();
    if (shown_page != before) verticalScrollBar()->setValue(0);
}

void Preview_Window::Fit_Width(bool fitted) {
    Rescale({viewport()->width() / 2, 0}, [&] { is_width_fitted = fitted; });
}

void Preview_Window::Mark(int page, const QRect& place) {
    marked_page = page;
    marked_place = place;
    if (page > 0) {
        Set_ShownPage(page);
        Bring_Mark_Into_View();
    }
    viewport()->update();
}

void Preview_Window::Bring_Mark_Into_View() {
    const QPointF middle = QPointF(marked_place.center()) * Pixels_Per_Twip() +
                           QPointF(Ground_Around_Sheet, Ground_Around_Sheet);
    horizontalScrollBar()->setValue(int(std::lround(middle.x())) - viewport()->width() / 2);
    verticalScrollBar()->setValue(int(std::lround(middle.y())) - viewport()->height() / 2);
}

void Preview_Window::PrintPages(const QString& name, int first, int last,
                                const std::function<void(const desktop::Printed_Document& sheets)>& take) {
    take(document.Document(name, first, last));
}

void Preview_Window::CopyPage() {
    if (sheet.width > 0) clipboard.Put(Copy_Of(sheet));
}

void Preview_Window::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().mid());
    if (sheet.width == 0) return;
    const QRect place = Sheet_Place();
    Paint_Shadow(painter, place);
    painter.fillRect(place, Qt::white);
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    painter.scale(Pixels_Per_Twip(), Pixels_Per_Twip());
    Paint(sheet, painter);
    if (marked_page == shown_page) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), Mark_Width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(marked_place);
    }
    painter.restore();
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : Sheet_Edge);
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

void Preview_Window::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    Fit_Scroll_Bars();
}

void Preview_Window::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update(); // the sheet's edge tells that the keys come here
}

void Preview_Window::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void Preview_Window::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragged_from = event->position().toPoint();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void Preview_Window::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) return;
    const QPoint moved = event->position().toPoint() - dragged_from;
    dragged_from += moved;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void Preview_Window::mouseReleaseEvent(QMouseEvent*) {
    viewport()->setCursor(Qt::OpenHandCursor);
}

void Preview_Window::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Zoom_By_Hand(Next_Zoom(), event->position().toPoint());
}

// The keys do all that the mouse does: the area itself scrolls by the arrow and page keys. Where a sheet ends
// the page keys go on to the next one.
void Preview_Window::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
        break;
    case Qt::Key_End:
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        Zoom_By_Hand(Next_Zoom(), viewport()->rect().center());
        break;
    case Qt::Key_Minus:
        Zoom_By_Hand(chosen_zoom, viewport()->rect().center());
        break;
    case Qt::Key_PageDown:
        if (!Turn(1)) QAbstractScrollArea::keyPressEvent(event);
        break;
    case Qt::Key_PageUp:
        if (!Turn(-1)) QAbstractScrollArea::keyPressEvent(event);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

// False where the sheet goes on in that direction, or there is none behind it.
bool Preview_Window::Turn(int by) {
    QScrollBar& bar = *verticalScrollBar();
    const int to = shown_page + by;
    if (bar.value() != (by > 0 ? bar.maximum() : bar.minimum()) || to < 1 || to > document.PageCount())
        return false;
    Set_ShownPage(to);
    bar.setValue(by > 0 ? bar.minimum() : bar.maximum());
    Q_EMIT Turned();
    return true;
}

double Preview_Window::Pixels_Per_Twip() const {
    if (is_width_fitted && sheet.width > 0)
        return double(std::max(1, viewport()->width() - 2 * Ground_Around_Sheet)) / sheet.width;
    return double(logicalDpiX()) / basics::Twips_Per_Inch * zoom / 100;
}

int Preview_Window::Shown_Percent() const {
    return int(std::lround(Pixels_Per_Twip() * basics::Twips_Per_Inch / logicalDpiX() * 100));
}

QSize Preview_Window::Sheet_Size() const {
    const double scale = Pixels_Per_Twip();
    return {int(std::lround(sheet.width * scale)), int(std::lround(sheet.height * scale))};
}

QRect Preview_Window::Sheet_Place() const {
    const QSize size = Sheet_Size();
    const QSize room = viewport()->size();
    const int left = std::max(Ground_Around_Sheet, (room.width() - size.width()) / 2);
    const int top = std::max(Ground_Around_Sheet, (room.height() - size.height()) / 2);
    return {QPoint(left - horizontalScrollBar()->value(), top - verticalScrollBar()->value()), size};
}

void Preview_Window::Fit_Scroll_Bars() {
    const QSize needed = Sheet_Size() + QSize(2 * Ground_Around_Sheet, 2 * Ground_Around_Sheet);
    const QSize room = viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, needed.width() - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setRange(0, std::max(0, needed.height() - room.height()));
    verticalScrollBar()->setPageStep(room.height());
}

void Preview_Window::Zoom_To(int percent, const QPoint& held) {
    Rescale(held, [&] { zoom = percent; });
}

void Preview_Window::Zoom_By_Hand(int percent, const QPoint& held) {
    Rescale(held, [&] {
        zoom = percent;
        is_width_fitted = false;
    });
    Q_EMIT Zoomed();
}

// What lies under the held point stays there as far as the sheet's edges allow.
void Preview_Window::Rescale(const QPoint& held, const std::function<void()>& change) {
    const QPointF on_sheet = QPointF(held - Sheet_Place().topLeft()) / Pixels_Per_Twip();
    change();
    Fit_Scroll_Bars();
    const QPointF there = QPointF(Sheet_Place().topLeft()) + on_sheet * Pixels_Per_Twip() - QPointF(held);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(std::lround(there.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + int(std::lround(there.y())));
    viewport()->update();
}

int Preview_Window::Next_Zoom() const {
    const auto* larger = std::find_if(std::begin(Enlargements), std::end(Enlargements),
                                      [this](int percent) { return percent > Shown_Percent(); });
    return larger == std::end(Enlargements) ? chosen_zoom : *larger;
}

// The page is painted, so a screen reader gets its words from here.
void Preview_Window::Tell_Assistive_Tools() {
    const QString place = u"Page %1 of %2. "_s.arg(shown_page).arg(document.PageCount());
    setAccessibleDescription(sheet.width == 0 ? QString() : place + Words_On(sheet));
}

} // namespace preview
