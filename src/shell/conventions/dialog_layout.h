#pragma once

#include <QList>

class QDialog;
class QWidget;

namespace shell {

class HotLabel;

// A dialog's controls below one another, and its entries in a row at the lower right.
void Lay_Out_Dialog(QDialog& dialog, const QList<QWidget*>& controls, const QList<HotLabel*>& entries);

} // namespace shell
