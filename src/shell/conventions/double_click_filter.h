#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace shell {

// Takes the second half of a double click away where its first press has put another page, dialog or box
// under the pointer. Stands before all of the program's windows.
class Double_Click_Filter final : public QObject {
    Q_OBJECT
public:
    Double_Click_Filter();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> pressed; // the page, dialog or box that the last press fell on
    bool passing_over = false; // until that button is let go
};

} // namespace shell
