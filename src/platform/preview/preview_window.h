#pragma once

#include "platform/desktop/printers.h"
#include "platform/preview/view_pro.h"

#include <QAbstractScrollArea>

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
    void Set_ShownPage(int page); // from 1
    int ShownPage() const { return shown_page; }

    // Hands the pages to what prints them, under the name that a printer's queue shows.
    void PrintPages(const QString& name, int first, int last,
                    const std::function<void(const desktop::Printed_Document& sheets)>& take);
    void CopyPage(); // the shown page

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
    QSize Sheet_Size() const;
    QRect Sheet_Place() const; // in the viewport
    void Fit_Scroll_Bars();
    void Zoom_To(int percent, const QPoint& held);
    int Next_Zoom() const;
    void Tell_Assistive_Tools();

    ViewPro& document;
    desktop::Clipboard& clipboard;
    Drawing sheet;
    int zoom = 100;
    int chosen_zoom = 100; // what a double click comes back to
    int shown_page = 1;
    QPoint dragged_from;
};

} // namespace preview
