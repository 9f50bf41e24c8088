#include "conversion/older_files.h"

#include "conversion/convert.h"
#include "conversion/jet_file.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace conversion {

bool Jet_Files::Is_One(const QString& file) {
    return Is_Jet_File(file);
}

void Jet_Files::Convert(const QString& file, const QString& copy, const Watcher& watcher) {
    Convert_Jet_File(file, copy, If_There_Is_One::Refuse, Reader_Beside_This_Program(), watcher);
}

QString Converted_Name(const QString& file) {
    const QString extension = QFileInfo(file).suffix();
    const qsizetype before = extension.isEmpty() ? file.size() : file.size() - extension.size() - 1;
    return file.left(before) + u"_converted"_s + file.mid(before);
}

} // namespace conversion
