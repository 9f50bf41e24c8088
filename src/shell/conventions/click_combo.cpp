#include "shell/conventions/click_combo.h"

#include "shell/conventions/guard.h"

#include <QAbstractListModel>
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

// Texts and nothing else: the toolkit's own items are objects with a font, an icon and more each.
class Texts final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(texts.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
        return is_text && index.isValid() ? QVariant(texts[index.row()]) : QVariant();
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role != Qt::DisplayRole && role != Qt::EditRole) return false;
        texts[index.row()] = value.toString();
        Q_EMIT dataChanged(index, index);
        return true;
    }
    bool insertRows(int row, int count, const QModelIndex&) override {
        beginInsertRows({}, row, row + count - 1);
        texts.insert(row, count, QString());
        endInsertRows();
        return true;
    }
    bool removeRows(int row, int count, const QModelIndex&) override {
        if (count < 1) return false;
        beginRemoveRows({}, row, row + count - 1);
        texts.remove(row, count);
        endRemoveRows();
        return true;
    }
    void Append(const QStringList& more) {
        if (more.isEmpty()) return;
        const int first = static_cast<int>(texts.size());
        beginInsertRows({}, first, first + static_cast<int>(more.size()) - 1);
        texts += more;
        endInsertRows();
    }

private:
    QStringList texts;
};

} // namespace

Click_Combo::Click_Combo(const QString& name, QWidget* parent) : QComboBox(parent) {
    setObjectName(name);
    setModel(new Texts(this));
    setView(new Items_View(this));
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded); // whatever style was in force so far
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
}

void Click_Combo::Add_Items(const QStringList& texts) {
    static_cast<Texts*>(model())->Append(texts);
}

void Click_Combo::showPopup() {
    if (!Behind_A_Box(*this)) QComboBox::showPopup();
}

void Click_Combo::Set_ListIndex(int index) {
    setCurrentIndex(index);
    Q_EMIT Click();
}

} // namespace shell
