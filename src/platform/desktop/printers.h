#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <functional>
#include <vector>

class QPainter;

namespace desktop {

// A place in a document that a reader of PDFs lists beside it.
struct Bookmark {
    QString title;
    int page = 1; // from 1
};

// What is sent to paper: A4 sheets, each painted in twips from the paper's top left corner. The painter is
// set up so that one unit is one twip; fonts are sized in units too, points x 20.
struct Printed_Document {
    QString name; // as the queue shows it
    int pages = 0;
    std::function<void(QPainter& painter, int page)> paint; // pages count from 1
    QString about = {};                   // what made it and from what, for the properties of a PDF
    std::vector<Bookmark> bookmarks = {}; // in the order of their pages
    QString title = {};                   // of a PDF and its file, which may name a pupil; empty: the name
    QString author = {};                  // of a PDF: the school
};

// The printer that the user chose, or the usual one.
class Printers {
public:
    virtual ~Printers() = default;
    virtual bool Is_Any_Set_Up() = 0;
    // Shows the printer dialog; false if it was cancelled. What was chosen holds until it is chosen anew.
    // Where no printer is set up there is nothing to choose.
    virtual bool Choose() = 0;
    // Prints on the chosen printer, or the usual one. A printer that is gone or stopped, and none at all, are
    // a basics::Run_Time_Error.
    virtual void Print(const Printed_Document& document) = 0;
};

// One page as programs that write documents take it.
struct Page_Copy {
    QByteArray wmf; // a placeable Windows metafile
    QByteArray svg;
    QImage picture;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void Put(const Page_Copy& page) = 0;
    virtual QString Text() = 0; // empty if it holds none
    virtual void Put_Text(const QString& text) = 0;
};

} // namespace desktop
