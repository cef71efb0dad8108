#include "GeneratedTemplate.h"

#include <QDir>
#include <QFile>

namespace Tobrix::Benchmarks {

namespace {

constexpr int columnsPerView = 40;
constexpr int columnsPerList = 20;
constexpr int itemsPerList = 8;
constexpr int itemsPerLongList = 12;
constexpr int legendClasses = 6;

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

QByteArray id(Shape shape, char prefix, int index)
{
    const QByteArray digits = number(index).rightJustified(shape == Shape::Guid ? 12 : 6, '0');
    if (shape != Shape::Guid) {
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

QByteArray prologOf(Shape shape, const QByteArray &root)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
           (shape == Shape::DocumentType ? "<!DOCTYPE " + root + ">\n" : QByteArray());
}

class CurrentWriter
{
public:
    explicit CurrentWriter(Shape shape) : m_shape(shape) {}

    QByteArray write(int columns)
    {
        m_out = prologOf(m_shape, "Template");
        m_out += "<Template>\n"
                 "  <TemplateIdentifier Id=\"BENCH\" Description=\"A generated standard\" "
                 "SystemOfUnits=\"Metric\">\n"
                 "    <Name>Bench</Name>\n    <Version>1.0</Version>\n  </TemplateIdentifier>\n";
        beginGroup("Views");
        for (int first = 0; first < columns; first += columnsPerView) {
            writeView(first, qMin(columns, first + columnsPerView));
        }
        endGroup("Views");
        beginGroup("ValueLists");
        for (int first = 0; first < columns; first += columnsPerList) {
            writeList(first);
        }
        endGroup("ValueLists");
        writeDefaults(columns);
        m_out += "  <ClassificationColorScopes>\n";
        writeLegend("Section");
        writeLegend("Lateral");
        m_out += "  </ClassificationColorScopes>\n</Template>\n";
        return m_out;
    }

private:
    void beginGroup(const char *name)
    {
        if (m_shape == Shape::Varied) {
            m_out += QByteArray("  <") + name + ">\n";
        }
    }

    void endGroup(const char *name)
    {
        if (m_shape == Shape::Varied) {
            m_out += QByteArray("  </") + name + ">\n";
        }
    }

    void writeView(int first, int end)
    {
        const int view = first / columnsPerView;
        m_out += "  <View Id=\"" + id(m_shape, 'V', view) + "\" Name=\"View" + number(view) +
                 "\" Description=\"A form\" Kind=\"Detail\">\n";
        beginGroup("Columns");
        for (int column = first; column < end; ++column) {
            writeColumn(column, end - column);
        }
        endGroup("Columns");
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
        const int step = m_shape == Shape::Varied ? 10 : 5;
        for (int column = 0; column < columns; column += step) {
            m_out += "      <DefaultValueItem Value=\"" + defaultOf(kindOf(column)) + "\" View=\"View" +
                     number(column / columnsPerView) + "\">\n        <BoundProperty PropertyName=\"" +
                     property(column) + "\"/>\n      </DefaultValueItem>\n";
        }
        m_out += "    </DefaultValueScope>\n  </DefaultValues>\n";
    }

    void writeLegend(const QByteArray &scope)
    {
        m_out += "    <ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"" + scope + "\">\n";
        for (int index = 0; index < legendClasses; ++index) {
            m_out += "      <ClassificationColor From=\"" + number(index) + "\" To=\"" + number(index + 1) +
                     "\">\n        <Color Html=\"#00ff00\"/>\n        <TextA><TextItem>Class " +
                     number(index) +
                     "</TextItem></TextA>\n        <TextB><TextItem>Remark</TextItem></TextB>\n"
                     "      </ClassificationColor>\n";
        }
        m_out += "    </ClassificationColorScope>\n";
    }

    const Shape m_shape;
    QByteArray m_out;
};

class LegacyWriter
{
public:
    explicit LegacyWriter(Shape shape) : m_shape(shape) {}

    QByteArray write(int columns)
    {
        m_out = prologOf(m_shape, "TobrixTemplate") + "<TobrixTemplate>\n<TXSYS>\n";
        section("SYSTPL", {{"TPL_PK", "BENCH"},
                           {"TPL_Key", "Bench"},
                           {"TPL_Description", "A generated standard"},
                           {"TPL_Version", "1.0"},
                           {"TPL_Unit", "m"}});
        for (int first = 0; first < columns; first += columnsPerView) {
            const int view = first / columnsPerView;
            section("PROGVIEW", {{"PV_PK", id(m_shape, 'V', view)},
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
        return m_shape == Shape::Varied ? m_out.replace("\n", "\r\n").replace("    ", "\t") : m_out;
    }

private:
    using Elements = std::initializer_list<std::pair<const char *, QByteArray>>;

    void section(const char *name, Elements elements)
    {
        comment(name);
        m_out += QByteArray("  <") + name + ">\n";
        append(elements);
        m_out += QByteArray("  </") + name + ">\n";
    }

    void comment(const char *section)
    {
        if (m_shape == Shape::Varied) {
            m_out += QByteArray("  <!-- ") + section + " -->\n";
        }
    }

    QByteArray caption(int column) const
    {
        return m_shape == Shape::Varied ? "Größe &amp; Länge " + number(column)
                                        : "Caption of " + number(column);
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
        comment("SYSCOL");
        m_out += "  <SYSCOL>\n";
        append({{"COL_PK", id(m_shape, 'C', column)},
                {"COL_Template_FK", "BENCH"},
                {"COL_ProgView_FK", id(m_shape, 'V', column / columnsPerView)},
                {"COL_Bound_TableDir_REF", "TD" + tableOf(column)},
                {"COL_Bound_Column", property(column)},
                {"COL_Caption", caption(column)},
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
        const int items = m_shape == Shape::Varied ? itemsPerLongList : itemsPerList;
        for (int item = 0; item < items; ++item) {
            const QByteArray index = number(item);
            section("SYSLIST", {{"LIST_PK", id(m_shape, 'L', first / columnsPerList * items + item)},
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
        for (int index = 0; index < legendClasses; ++index) {
            const QByteArray lower = number(index);
            m_out += "      <class id=\"" + lower + "\" numberFrom=\"" + lower + "\" numberTo=\"" +
                     number(index + 1) + "\" color=\"#00ff00\">\n        <legendA>Class " + lower +
                     "</legendA>\n        <legendB>Remark</legendB>\n      </class>\n";
        }
        m_out += "    </" + group + ">\n";
    }

    const Shape m_shape;
    QByteArray m_out;
};

} // namespace

QByteArray generateTemplate(Format format, Shape shape, int columns)
{
    return format == Format::Current ? CurrentWriter(shape).write(columns)
                                     : LegacyWriter(shape).write(columns);
}

QString writeGeneratedTemplate(const QString &folder, Format format, Shape shape, int columns)
{
    const QString subfolder =
        format == Format::Current ? QStringLiteral("templates_new") : QStringLiteral("templates");
    QDir(folder).mkpath(subfolder);
    QFile file(
        QStringLiteral("%1/%2/%3-%4.xml").arg(folder, subfolder).arg(static_cast<int>(shape)).arg(columns));
    const QByteArray content = generateTemplate(format, shape, columns);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("Cannot write %s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    }
    return file.fileName();
}

} // namespace Tobrix::Benchmarks
