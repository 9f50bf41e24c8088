#pragma once

#include <QLineEdit>

namespace pupils {

// An entry for a name: gaining the focus selects what it holds, up to a number of characters, so that typing
// replaces it.
class Name_Box final : public QLineEdit {
    Q_OBJECT
public:
    Name_Box(const QString& name, int selected_at_most, QWidget* parent);

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    int selected_at_most;
};

// The numbers are those that the pages have always had.
inline constexpr int Surname_Selection = 65000;
inline constexpr int Forename_Selection = 64;

} // namespace pupils
