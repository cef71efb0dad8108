// Loads a template as the host does, and prints what only this host can have told the library: FILE

#include "format_current/NewTemplateXMLReader.h"
#include "host/CLogger.h"
#include "host/CoreApplication.h"
#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "rawdata/CTemplateRawData.h"

#include <QFile>
#include <QTextStream>

using namespace Tobrix;

namespace {

class Trunk : public CATManagement::CTemplateDescriptor
{
public:
    int rank() const override { return 1; }
    QString type() const override { return QStringLiteral("TRUNK MAINS"); }
};

void printColumns(const Templates::CProgramView &view, QTextStream &out)
{
    for (int i = 0; i < view.columnCount(); ++i) {
        const auto *column = view.column(i);
        out << column->tableName() << '.' << column->boundColumn() << ": "
            << (column->isVisible() ? "visible" : "hidden") << '\n';
    }
}

} // namespace

int main(int, char *argv[])
{
    AppLogic::CoreApplication application;
    application.catalogTemplateRegistry()->enter(QStringLiteral("TRUNK-1"), std::make_unique<Trunk>());
    const QString path = QFile::decodeName(argv[1]);
    QTextStream out(stdout);

    Templates::CCatalogTemplate *loaded = nullptr;
    if (!Templates::CTemplateReader::readFile(path, Templates::CTemplateReader::ReaderFlags(), loaded)) {
        return 1;
    }
    const std::unique_ptr<const Templates::CCatalogTemplate> catalogTemplate(loaded);
    out << "type: " << catalogTemplate->type() << '\n';
    printColumns(*catalogTemplate->programView(0), out);
    // Asks a column for something that only dates have, which goes to the log.
    catalogTemplate->programView(0)->column(0)->displayFormat();

    Templates::CTemplateRawData rawData;
    Templates::NewTemplateXMLReader().readFile(path, rawData);
    for (const auto &catalog : qAsConst(rawData.catalogs)) {
        out << "catalogue: " << catalog.label() << '\n';
    }
    for (const auto &entry : Logging::CLogger::entries()) {
        out << (entry.level == Logging::LogLevel::Doubt  ? "doubt"
                : entry.level == Logging::LogLevel::Note ? "note"
                                                         : "other")
            << ": " << entry.text << '\n';
    }
}
