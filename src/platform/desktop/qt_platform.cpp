#include "platform/desktop/qt_platform.h"

#include "platform/basics/native_path.h"
#include "platform/basics/run_time_error.h"
#include "platform/desktop/disk_ports.h"
#include "platform/desktop/played_sound.h"
#include "platform/desktop/qt_printers.h"
#include "platform/desktop/user_settings.h"
#include "platform/desktop/windows_services.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QRandomGenerator>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

// A list of a thousand bad records would push the buttons off the screen.
void Let_Long_Text_Scroll(QMessageBox& box) {
    constexpr int scroll_bar = 40;
    auto* text = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    const int room = QGuiApplication::primaryScreen()->availableSize().height() / 2;
    if (!text || !grid || text->sizeHint().height() <= room) return;
    int row, column, rows, columns;
    grid->getItemPosition(grid->indexOf(text), &row, &column, &rows, &columns);
    auto* scrolled = new QScrollArea(&box);
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setFixedSize(text->sizeHint().width() + scroll_bar, room);
    scrolled->setWidget(text);
    grid->addWidget(scrolled, row, column, rows, columns);
}

// Where no answer stands for leaving, Escape and the close mark do nothing.
class Message_Box final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!Must_Choose() || !event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override {
        if (Must_Choose())
            event->ignore();
        else
            QMessageBox::closeEvent(event);
    }

private:
    // The toolkit takes Abort for a way to leave.
    bool Must_Choose() const { return standardButtons().testFlag(QMessageBox::Abort); }
};

class Qt_Message_Boxes final : public Message_Boxes {
public:
    Answer Ask(Box_Style style, const QString& title, const QString& text) override {
        Message_Box box(QApplication::activeWindow());
        box.setWindowTitle(title);
        box.setTextFormat(Qt::PlainText); // a pupil's name is never mark-up
        QString lines = text;
        box.setText(lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n'));
        box.setIcon(Icon(style));
        box.setStandardButtons(Buttons(style));
        Let_Long_Text_Scroll(box);
        return Answer_Of(box.exec());
    }

private:
    static QMessageBox::Icon Icon(Box_Style style) {
        switch (static_cast<int>(style) & 0x70) {
        case 16:
            return QMessageBox::Critical;
        case 32:
            return QMessageBox::Question;
        case 48:
            return QMessageBox::Warning;
        case 64:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
        }
    }
    static QMessageBox::StandardButtons Buttons(Box_Style style) {
        switch (static_cast<int>(style) & 0x0f) {
        case 2:
            return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
        case 3:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case 4:
            return QMessageBox::Yes | QMessageBox::No;
        default:
            return QMessageBox::Ok;
        }
    }
    static Answer Answer_Of(int button) {
        switch (button) {
        case QMessageBox::Cancel:
            return Answer::Cancel;
        case QMessageBox::Abort:
            return Answer::Abort;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Ignore:
            return Answer::Ignore;
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Ok;
        }
    }
};

class Qt_Pointer final : public Pointer {
public:
    void Set(Pointer_Shape shape) override {
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        if (shape == Pointer_Shape::Hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
        if (shape == Pointer_Shape::Arrow_And_Hourglass) QApplication::setOverrideCursor(Qt::BusyCursor);
    }
};

class System_Clock final : public Clock {
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
    int Timer_Interval(int designed) const override { return designed; }
};

class Qt_Sound final : public Sound {
public:
    void Play(const QString& file) override {
        const QString native = basics::Native_Path(file);
        if (QFileInfo::exists(native)) Play_To_Its_End(native);
    }
};

class Qt_Documents final : public Documents {
public:
    QString Short_Path(const QString& path) override { return System_Short_Path(path); }

    int Shell_Open(const QString& file, const QString&) override {
        constexpr int file_not_found = 2;
        constexpr int no_application = 31;
        constexpr int done = 33;
        const QString native = basics::Native_Path(file);
        if (!QFileInfo::exists(native)) return file_not_found;
        return QDesktopServices::openUrl(QUrl::fromLocalFile(native)) ? done : no_application;
    }
};

class Qt_Processes final : public Processes {
public:
    void Start(const QString& command_line) override {
        const qsizetype blank = End_Of_Program(command_line);
        const QString program = basics::Native_Path(command_line.left(blank));
        const QStringList arguments = QProcess::splitCommand(command_line.mid(blank));
        if (!QFileInfo(program).isFile()) basics::Raise(basics::errors::File_Not_Found);
        if (!QProcess::startDetached(program, arguments)) basics::Raise(basics::errors::Permission_Denied);
    }

protected:
    void End_Process(int status) override {
        std::fflush(nullptr);
        std::_Exit(status);
    }

private:
    // The program's own path may hold blanks: the longest beginning that names a file is taken.
    static qsizetype End_Of_Program(const QString& command_line) {
        for (qsizetype end = command_line.size(); end > 0; end = command_line.lastIndexOf(u' ', end - 1))
            if (QFileInfo(basics::Native_Path(command_line.left(end))).isFile()) return end;
        const qsizetype blank = command_line.lastIndexOf(u' ');
        return blank < 0 ? command_line.size() : blank;
    }
};

class Qt_Modal_Dialogs final : public Modal_Dialogs {
public:
    void Show(QDialog& dialog) override { dialog.exec(); }
};

// Looks at the choice before the toolkit asks whether a file may be replaced.
class Choosy_File_Dialog final : public QFileDialog {
public:
    Choosy_File_Dialog(const File_Question& question, Message_Boxes& boxes)
        : QFileDialog(QApplication::activeWindow(), question.title, basics::Native_Path(question.folder),
                      question.filter),
          question(question),
          boxes(boxes) {
        Make_Columns_Readable();
    }
    // Only the toolkit's own dialog has a place for it.
    void Tell_Of_Choice() {
        setOption(QFileDialog::DontUseNativeDialog);
        Make_Columns_Readable();
        auto* grid = qobject_cast<QGridLayout*>(layout());
        if (!grid) return;
        constexpr int until_it_stays_ms = 150; // the arrow keys may lead through many files
        told = new QLabel(this);
        told->setObjectName(u"File_Words"_s);
        told->setTextFormat(Qt::PlainText);
        told->setWordWrap(true);
        told->setMinimumHeight(2 * told->fontMetrics().lineSpacing());
        grid->addWidget(told, grid->rowCount(), 0, 1, -1);
        looking.setSingleShot(true);
        looking.setInterval(until_it_stays_ms);
        connect(&looking, &QTimer::timeout, this, [this] { Tell(); });
        connect(this, &QFileDialog::currentChanged, &looking, qOverload<>(&QTimer::start));
        for (auto* name : findChildren<QLineEdit*>())
            connect(name, &QLineEdit::textChanged, &looking, qOverload<>(&QTimer::start));
    }
    QString Show_Until_Taken() {
        do {
            refused = false;
            if (exec() == QDialog::Accepted) return Choice();
        } while (refused); // a dialog of the system's own has closed all the same
        return {};
    }

protected:
    void accept() override {
        const QString why_not = Why_Not();
        refused = !why_not.isEmpty();
        if (!refused) return QFileDialog::accept();
        boxes.Ask(Box_Style::Exclamation, question.title, why_not);
    }
    void reject() override {
        refused = false;
        QFileDialog::reject();
    }

private:
    // The toolkit's own dialog cuts names and dates short; one of the system's has no such list.
    void Make_Columns_Readable() {
        constexpr QSize roomy(900, 520);
        constexpr int widths[] = {280, 100, 140, 180}; // name, size, kind, date: pixels
        auto* files = findChild<QTreeView*>(u"treeView"_s);
        if (!files) return;
        resize(roomy);
        findChild<QSplitter*>()->setSizes({140, roomy.width()}); // places beside the list
        for (int column = 0; column < int(std::size(widths)); ++column)
            files->header()->resizeSection(column, widths[column]);
    }
    QString Choice() const { return QDir::toNativeSeparators(selectedFiles().value(0)); }

    File_Words Words() const {
        const QString file = Choice();
        return question.tell && QFileInfo(file).isFile() ? question.tell(file) : File_Words{};
    }
    // A screen reader hears it with the field and the list that choose the file.
    void Tell() {
        const QString words = Words().words;
        told->setText(words);
        for (auto* chooser : findChildren<QWidget*>())
            if (qobject_cast<QLineEdit*>(chooser) || qobject_cast<QAbstractItemView*>(chooser))
                chooser->setAccessibleDescription(words);
    }
    QString Why_Not() const {
        if (question.why_not) return question.why_not(Choice());
        const File_Words found = Words();
        return found.is_taken ? QString() : found.words;
    }

    QLabel* told = nullptr;
    QTimer looking;
    bool refused = false;
    const File_Question& question;
    Message_Boxes& boxes;
};

class Qt_File_Dialogs final : public File_Dialogs {
public:
    explicit Qt_File_Dialogs(Message_Boxes& boxes) : boxes(boxes) {}

    QString Open_File(const File_Question& question) override {
        return Show(question, QFileDialog::AcceptOpen, QFileDialog::ExistingFile);
    }
    QString Save_File(const File_Question& question) override {
        return Show(question, QFileDialog::AcceptSave, QFileDialog::AnyFile);
    }
    QString Choose_Folder(const QString& title, const QString& folder) override {
        return QDir::toNativeSeparators(QFileDialog::getExistingDirectory(QApplication::activeWindow(), title,
                                                                          basics::Native_Path(folder)));
    }

private:
    QString Show(const File_Question& question, QFileDialog::AcceptMode mode, QFileDialog::FileMode files) {
        Choosy_File_Dialog dialog(question, boxes);
        dialog.setAcceptMode(mode);
        dialog.setFileMode(files);
        dialog.setDefaultSuffix(question.extension);
        if (question.tell) dialog.Tell_Of_Choice();
        if (!question.file_name.contains(u'*')) dialog.selectFile(question.file_name);
        return dialog.Show_Until_Taken();
    }

    Message_Boxes& boxes;
};

class Qt_Input_Box final : public Input_Box {
public:
    QString Ask(const QString& prompt, const QString& title) override {
        return QInputDialog::getText(QApplication::activeWindow(), title, prompt, QLineEdit::Password);
    }
};

class Seeded_Random final : public Random_Source {
public:
    // Mixed with what came before: a list of pupils is imported faster than some clocks tick, and those of
    // one tick must not draw the same numbers.
    void Seed(double seconds) override {
        engine.seed(engine.generate() ^ static_cast<quint32>(seconds * 1000));
    }
    double Next() override { return engine.generateDouble(); }

private:
    QRandomGenerator engine;
};

} // namespace

struct Qt_Platform::Bodies {
    Qt_Message_Boxes boxes;
    Qt_Pointer pointer;
    System_Clock clock;
    Qt_Sound sound;
    Qt_Documents documents;
    Qt_Processes processes;
    Disk_Ports disk;
    Qt_Modal_Dialogs dialogs;
    Qt_File_Dialogs file_dialogs{boxes};
    Qt_Input_Box input_box;
    Seeded_Random random;
    std::unique_ptr<Printers> printers = Make_Qt_Printers();
    std::unique_ptr<Clipboard> clipboard = Make_Qt_Clipboard();
    std::unique_ptr<Registry> registry = Make_System_Registry();
    std::unique_ptr<User_Settings> settings = Make_User_Settings(User_Settings_File());
    Platform ports{boxes,     pointer,     clock,         sound,     documents,    processes,
                   *disk.ini, *disk.files, *disk.folders, dialogs,   file_dialogs, input_box,
                   random,    *printers,   *clipboard,    *registry, *settings};
};

Qt_Platform::Qt_Platform() : bodies(std::make_unique<Bodies>()) {
}
Qt_Platform::~Qt_Platform() = default;

Platform& Qt_Platform::Ports() {
    return bodies->ports;
}

} // namespace desktop
