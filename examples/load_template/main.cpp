// Prints the key of a template and its views: load_template FILE

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CProgramView.h"

#include <QFile>
#include <QTextStream>

#include <memory>

using namespace Tobrix::Templates;

int main(int argc, char *argv[])
{
    CCatalogTemplate *loaded = nullptr;
    const QString path = QFile::decodeName(argc > 1 ? argv[1] : "");
    if (!CTemplateReader::readFile(path, CTemplateReader::ReaderFlags(), loaded)) {
        return 1;
    }
    const std::unique_ptr<const CCatalogTemplate> catalogTemplate(loaded);
    QTextStream out(stdout);
    out << catalogTemplate->key() << '\n';
    for (int i = 0; i < catalogTemplate->programViewCount(); ++i) {
        const CProgramView *view = catalogTemplate->programView(i);
        out << view->key() << ": " << view->columnCount() << " columns\n";
    }
}
