#pragma once

#include "platform/desktop/printers.h"
#include "platform/preview/view_pro.h"

#include <QAbstractScrollArea>
#include <QRect>
#include <functional>

namespace preview {

// The preview on screen: one sheet at a time, which the mouse drags and a double click enlarges. It keeps the
// sheet that was last shown, so a document may be built anew while the old page still stands there.
class Preview_Window final : public QAbstractScrollArea {
    Q_OBJECT
public:
    // The document must live as long as this window is asked anything; the window answers its ShowOutput.
    Preview_Window(ViewPro& document, desktop::Clipboard& clipboard, QWidget* parent = nullptr);

    void Show_Output();
    void Set_ZoomPercent(int percent); // 100 is the real size by the screen's own resolution
    int ZoomPercent() const { return zoom; }
    // Shows the sheet as wide as the window, whatever the zoom in force, to which it comes back.
    void Fit_Width(bool fitted);
    bool Is_Width_Fitted() const { return is_width_fitted; }
    void Set_ShownPage(int page); // from 1
    int ShownPage() const { return shown_page; }
    // Frames a place of a page on screen only, in twips, and brings it into view; page 0 frames none.
    void Mark(int page, const QRect& place = {});

    // Hands the pages to what prints them, under the name that a printer's queue shows.
    void PrintPages(const QString& name, int first, int last,
                    const std::function<void(const desktop::Printed_Document& sheets)>& take);
    void CopyPage(); // the shown page

Q_SIGNALS:
    void Turned(); // another page, by the keys
    void Zoomed(); // closer or back, by the keys or the mouse

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double Pixels_Per_Twip() const;
    int Shown_Percent() const;
    QSize Sheet_Size() const;
    QRect Sheet_Place() const; // in the viewport
    void Fit_Scroll_Bars();
    void Zoom_To(int percent, const QPoint& held);
    void Zoom_By_Hand(int percent, const QPoint& held);
    void Rescale(const QPoint& held, const std::function<void()>& change);
    int Next_Zoom() const;
    bool Turn(int by);
    void Bring_Mark_Into_View();
    void Tell_Assistive_Tools();

    ViewPro& document;
    desktop::Clipboard& clipboard;
    Drawing sheet;
    int zoom = 100;
    int chosen_zoom = 100; // what a double click comes back to
    bool is_width_fitted = false;
    int shown_page = 1;
    int marked_page = 0;
    QRect marked_place;
    QPoint dragged_from;
};

} // namespace preview
