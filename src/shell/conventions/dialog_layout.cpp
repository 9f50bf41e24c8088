#include "shell/conventions/dialog_layout.h"

#include "shell/conventions/hot_label.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace shell {

void Lay_Out_Dialog(QDialog& dialog, const QList<QWidget*>& controls, const QList<HotLabel*>& entries) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (HotLabel* entry : entries) {
        entry->setMinimumSize(96, 36);
        row->addWidget(entry);
    }
    auto* column = new QVBoxLayout(&dialog);
    column->setContentsMargins(24, 20, 24, 20);
    column->setSpacing(12);
    for (QWidget* control : controls)
        column->addWidget(control);
    column->addLayout(row);
}

} // namespace shell
