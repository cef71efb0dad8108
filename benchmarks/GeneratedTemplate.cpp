#include "GeneratedTemplate.h"

#include <QDir>
#include <QFile>

namespace Tobrix::Benchmarks {

namespace {

constexpr int columnsPerView = 40;
constexpr int columnsPerList = 20;
constexpr int itemsPerList = 8;
constexpr int legendBands = 6;

struct Kind
{
    const char *name;
    const char *code;
    const char *control;
    int controlCode;
};

constexpr Kind kinds[] = {
    {"Text", "TXT", "SimpleTextbox", 1},     {"Decimal", "DEC", "NumericUpDown", 4},
    {"Text", "TXT", "ComboList", 3},         {"Integer", "INT", "NumericUpDown", 4},
    {"Boolean", "BOL", "CheckBox", 7},       {"Date", "DAT", "DateOnlyPicker", 5},
    {"Decimal", "DEC", "NumericUpDown", 4},  {"Time", "TIM", "TimeOnlyPicker", 6},
    {"Text", "TXT", "MultiLineTextbox", 19}, {"Integer", "INT", "SimpleTextbox", 1},
};

constexpr const char *tables[] = {"SECTION", "LATERAL", "NODE", "INSPECTION"};
constexpr const char *units[] = {"mm", "m", "%", "kg"};

QByteArray number(int value)
{
    return QByteArray::number(value);
}

const Kind &kindOf(int column)
{
    return kinds[static_cast<unsigned>(column) % std::size(kinds)];
}

QByteArray tableOf(int column)
{
    return tables[static_cast<unsigned>(column / columnsPerView) % std::size(tables)];
}

QByteArray unitOf(int column)
{
    return units[static_cast<unsigned>(column) % std::size(units)];
}

bool hasRange(const Kind &kind)
{
    return qstrcmp(kind.code, "DEC") == 0 || qstrcmp(kind.code, "INT") == 0;
}

QByteArray id(Ids ids, char prefix, int index)
{
    const QByteArray digits = number(index).rightJustified(ids == Ids::Short ? 6 : 12, '0');
    if (ids == Ids::Short) {
        return prefix + digits;
    }
    return "{" + QByteArray::number(prefix, 16).rightJustified(8, '0') + "-5d41-4e0b-9c3a-" + digits + "}";
}

QByteArray property(int column)
{
    return "OBJ_Property_" + number(column);
}

QByteArray listName(int column)
{
    return "Standard_List_" + number(column / columnsPerList);
}

QByteArray defaultOf(const Kind &kind)
{
    if (qstrcmp(kind.code, "DAT") == 0 || qstrcmp(kind.code, "TIM") == 0) {
        return "=Today()";
    }
    return qstrcmp(kind.code, "BOL") == 0 ? "true" : "12";
}

class CurrentWriter
{
public:
    explicit CurrentWriter(Ids ids) : m_ids(ids) {}

    QByteArray write(int columns)
    {
        m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Template>\n"
                "  <TemplateIdentifier Id=\"BENCH\" Description=\"A generated standard\" "
                "SystemOfUnits=\"Metric\">\n"
                "    <Name>Bench</Name>\n    <Version>1.0</Version>\n  </TemplateIdentifier>\n";
        for (int first = 0; first < columns; first += columnsPerView) {
            writeView(first, qMin(columns, first + columnsPerView));
        }
        for (int first = 0; first < columns; first += columnsPerList) {
            writeList(first);
        }
        writeDefaults(columns);
        m_out += "  <ClassificationColorScopes>\n";
        writeLegend("Section");
        writeLegend("Lateral");
        m_out += "  </ClassificationColorScopes>\n</Template>\n";
        return m_out;
    }

private:
    void writeView(int first, int end)
    {
        const int view = first / columnsPerView;
        m_out += "  <View Id=\"" + id(m_ids, 'V', view) + "\" Name=\"View" + number(view) +
                 "\" Description=\"A form\" Kind=\"Detail\">\n";
        for (int column = first; column < end; ++column) {
            writeColumn(column, end - column);
        }
        m_out += "  </View>\n";
    }

    void writeColumn(int column, int ordinal)
    {
        const Kind &kind = kindOf(column);
        m_out += "    <Column DataType=\"" + QByteArray(kind.name) + "\" ControlType=\"" + kind.control +
                 "\" Width=\"120\" Ordinal=\"" + number(ordinal) + "\" ValueTransfer=\"true\" Unit=\"" +
                 unitOf(column) + "\">\n      <BoundProperty PropertyName=\"" + property(column) +
                 "\" ObjectName=\"" + tableOf(column) +
                 "\"/>\n      <Caption>\n        <TextItem>Caption of " + number(column) +
                 "</TextItem>\n      </Caption>\n      <ToolTip>\n        <TextItem>What " + number(column) +
                 " is for</TextItem>\n      </ToolTip>\n"
                 "      <VisibilityRestriction Simple=\"false\">\n"
                 "        <GroupLevel Level1=\"true\" Level2=\"false\"/>\n      </VisibilityRestriction>\n"
                 "      <MandatoryRestriction/>\n";
        if (hasRange(kind)) {
            m_out += "      <NumericRangeRestriction From=\"0\" To=\"1000\" Step=\"1\" Precision=\"2\"/>\n";
        }
        if (qstrcmp(kind.control, "ComboList") == 0) {
            m_out += "      <ValueListName>" + listName(column) + "</ValueListName>\n";
        }
        if (qstrcmp(kind.code, "TXT") == 0) {
            m_out += "      <TextLengthRestriction Max=\"80\"/>\n";
        }
        if (qstrcmp(kind.code, "DAT") == 0) {
            m_out += "      <DisplayFormat>\n        <ValueFormatItem Format=\"yyyy-MM-dd\"/>\n      "
                     "</DisplayFormat>\n";
        }
        m_out += "    </Column>\n";
    }

    void writeList(int first)
    {
        m_out += "  <ValueList Name=\"" + listName(first) + "\" CompatibleListClassType=\"3\">\n";
        for (int item = 0; item < itemsPerList; ++item) {
            const QByteArray index = number(item);
            m_out += "    <ValueListItem Key=\"K" + index + "\" InternalKey=\"" + index +
                     "\" OrdinalIndex=\"" + index + "\">\n      <Captions>\n        <TextItem>Choice " +
                     index + "</TextItem>\n      </Captions>\n    </ValueListItem>\n";
        }
        m_out += "  </ValueList>\n";
    }

    void writeDefaults(int columns)
    {
        m_out += "  <DefaultValues>\n    <DefaultValueScope>\n";
        for (int column = 0; column < columns; column += 5) {
            m_out += "      <DefaultValueItem Value=\"" + defaultOf(kindOf(column)) + "\" View=\"View" +
                     number(column / columnsPerView) + "\">\n        <BoundProperty PropertyName=\"" +
                     property(column) + "\"/>\n      </DefaultValueItem>\n";
        }
        m_out += "    </DefaultValueScope>\n  </DefaultValues>\n";
    }

    void writeLegend(const QByteArray &scope)
    {
        m_out += "    <ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"" + scope + "\">\n";
        for (int band = 0; band < legendBands; ++band) {
            m_out += "      <ClassificationColor From=\"" + number(band) + "\" To=\"" + number(band + 1) +
                     "\">\n        <Color Html=\"#00ff00\"/>\n        <TextA><TextItem>Class " +
                     number(band) +
                     "</TextItem></TextA>\n        <TextB><TextItem>Remark</TextItem></TextB>\n"
                     "      </ClassificationColor>\n";
        }
        m_out += "    </ClassificationColorScope>\n";
    }

    const Ids m_ids;
    QByteArray m_out;
};

class LegacyWriter
{
public:
    explicit LegacyWriter(Ids ids) : m_ids(ids) {}

    QByteArray write(int columns)
    {
        m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TobrixTemplate>\n<TXSYS>\n";
        section("SYSTPL", {{"TPL_PK", "BENCH"},
                           {"TPL_Key", "Bench"},
                           {"TPL_Description", "A generated standard"},
                           {"TPL_Version", "1.0"},
                           {"TPL_Unit", "m"}});
        for (int first = 0; first < columns; first += columnsPerView) {
            const int view = first / columnsPerView;
            section("PROGVIEW", {{"PV_PK", id(m_ids, 'V', view)},
                                 {"PV_Key", "View" + number(view)},
                                 {"PV_Description", "A form"}});
        }
        for (int column = 0; column < columns; ++column) {
            writeColumn(column, columns);
        }
        for (int first = 0; first < columns; first += columnsPerList) {
            writeList(first);
        }
        m_out += "  <LegendOfClassification>\n";
        writeLegend("Section");
        writeLegend("Lateral");
        m_out += "  </LegendOfClassification>\n</TXSYS>\n</TobrixTemplate>\n";
        return m_out;
    }

private:
    using Elements = std::initializer_list<std::pair<const char *, QByteArray>>;

    void section(const char *name, Elements elements)
    {
        m_out += QByteArray("  <") + name + ">\n";
        append(elements);
        m_out += QByteArray("  </") + name + ">\n";
    }

    void append(Elements elements)
    {
        for (const auto &[name, text] : elements) {
            m_out += QByteArray("    <") + name + ">" + text + "</" + name + ">\n";
        }
    }

    void writeColumn(int column, int columns)
    {
        const Kind &kind = kindOf(column);
        const int first = column / columnsPerView * columnsPerView;
        const int ordinal = qMin(columns, first + columnsPerView) - column;
        m_out += "  <SYSCOL>\n";
        append({{"COL_PK", id(m_ids, 'C', column)},
                {"COL_Template_FK", "BENCH"},
                {"COL_ProgView_FK", id(m_ids, 'V', column / columnsPerView)},
                {"COL_Bound_TableDir_REF", "TD" + tableOf(column)},
                {"COL_Bound_Column", property(column)},
                {"COL_Caption", "Caption of " + number(column)},
                {"COL_ToolTip", "What " + number(column) + " is for"},
                {"COL_GroupLevel", "1"},
                {"COL_DataType", kind.code},
                {"COL_Unit", unitOf(column)},
                {"COL_StateBits", "0"},
                {"COL_Visible", "true"},
                {"COL_ReadOnly", "false"},
                {"COL_Mandatory", "true"},
                {"COL_Virtual", "false"},
                {"COL_ValueTransfer", "true"},
                {"COL_DataSourceType", "3"},
                {"COL_ControlType", number(kind.controlCode)},
                {"COL_TextAlign", "0"},
                {"COL_Width", "120"},
                {"COL_ForeColor", "0"},
                {"COL_BackColor", "16777215"},
                {"COL_SortOrder", number(ordinal)},
                {"COL_Length", "80"},
                {"TDIR_Key", tableOf(column)}});
        if (hasRange(kind)) {
            append({{"COL_RangeFrom", "0"},
                    {"COL_RangeTo", "1000"},
                    {"COL_Steps", "1"},
                    {"COL_Precision", "2"}});
        }
        if (qstrcmp(kind.control, "ComboList") == 0) {
            append({{"COL_DataSource", listName(column)}});
        }
        if (qstrcmp(kind.code, "DAT") == 0) {
            append({{"COL_DisplayFmt", "yyyy-MM-dd"}});
        }
        if (column % 5 == 0) {
            append({{"COL_Default", defaultOf(kind)}});
        }
        m_out += "  </SYSCOL>\n";
    }

    void writeList(int first)
    {
        for (int item = 0; item < itemsPerList; ++item) {
            const QByteArray index = number(item);
            section("SYSLIST", {{"LIST_PK", id(m_ids, 'L', first / columnsPerList * itemsPerList + item)},
                                {"LIST_Name", listName(first)},
                                {"LIST_Item", "K" + index},
                                {"LIST_Caption", "Choice " + index},
                                {"LIST_Internal", index},
                                {"LIST_SortOrder", index}});
        }
    }

    void writeLegend(const QByteArray &group)
    {
        m_out += "    <" + group + ">\n";
        for (int band = 0; band < legendBands; ++band) {
            const QByteArray index = number(band);
            m_out += "      <class id=\"" + index + "\" numberFrom=\"" + index + "\" numberTo=\"" +
                     number(band + 1) + "\" color=\"#00ff00\">\n        <legendA>Class " + index +
                     "</legendA>\n        <legendB>Remark</legendB>\n      </class>\n";
        }
        m_out += "    </" + group + ">\n";
    }

    const Ids m_ids;
    QByteArray m_out;
};

} // namespace

QByteArray generateTemplate(Format format, Ids ids, int columns)
{
    return format == Format::Current ? CurrentWriter(ids).write(columns) : LegacyWriter(ids).write(columns);
}

QString writeGeneratedTemplate(const QString &folder, Format format, Ids ids, int columns)
{
    const QString subfolder =
        format == Format::Current ? QStringLiteral("templates_new") : QStringLiteral("templates");
    QDir(folder).mkpath(subfolder);
    QFile file(
        QStringLiteral("%1/%2/%3-%4.xml")
            .arg(folder, subfolder, ids == Ids::Short ? QStringLiteral("short") : QStringLiteral("guid"))
            .arg(columns));
    const QByteArray content = generateTemplate(format, ids, columns);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Cannot write %s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    }
    return file.fileName();
}

} // namespace Tobrix::Benchmarks
