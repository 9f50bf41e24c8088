#include "shell/conventions/click_combo.h"

#include "shell/conventions/guard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>

namespace shell {
namespace {

// The items of a list. A search by keys looks behind the blank that numbers have for their sign, and goes on
// with the next key: a year is typed to its end.
class Items_View final : public QListView {
public:
    explicit Items_View(QWidget* parent) : QListView(parent) {
        setUniformItemSizes(true);
        setTextElideMode(Qt::ElideMiddle);
    }

    void keyboardSearch(const QString& key) override {
        constexpr int between_digits_ms = 1500; // digits have to be looked for on the keyboard
        if (key.isEmpty()) return;
        const bool digit = key.at(0).isDigit();
        const int interval = digit ? between_digits_ms : QApplication::keyboardInputInterval();
        const bool goes_on = since_key.isValid() && since_key.elapsed() < interval;
        since_key.start();
        typed = goes_on ? typed + key : key;
        if (goes_on && Choose(typed, 0)) return;
        const bool one_key_again = typed.count(key) == typed.size();
        if (goes_on && !one_key_again && !digit) return;
        if (digit) typed = key; // begins another number
        Choose(key, 1);
    }

private:
    // The next item that begins with the text, from so many rows behind the current one on; the one that is
    // that number goes first.
    bool Choose(const QString& text, int rows_behind) {
        const auto item = [this](int row) { return model()->index(row, modelColumn(), rootIndex()); };
        const int rows = model()->rowCount(rootIndex());
        const int first = currentIndex().isValid() ? currentIndex().row() + rows_behind : 0;
        const bool number = text.at(0).isDigit();
        QModelIndex found;
        for (int i = 0; i < rows; ++i) {
            const QModelIndex index = item((first + i) % rows);
            const QString words = index.data().toString().trimmed();
            if (!found.isValid() && words.startsWith(text, Qt::CaseInsensitive)) found = index;
            if (number && words == text) found = index;
        }
        if (found.isValid()) setCurrentIndex(found);
        return found.isValid();
    }

    QString typed;
    QElapsedTimer since_key;
};

} // namespace

Click_Combo::Click_Combo(const QString& name, QWidget* parent) : QComboBox(parent) {
    setObjectName(name);
    setView(new Items_View(this));
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded); // whatever style was in force so far
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

void Click_Combo::showPopup() {
    if (!Behind_A_Box(*this)) QComboBox::showPopup();
}

void Click_Combo::Set_ListIndex(int index) {
    setCurrentIndex(index);
    Q_EMIT Click();
}

} // namespace shell
