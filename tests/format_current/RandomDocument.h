#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>

#include <vector>

/// A random document of nested elements of the format, the same for the same seed. Some elements are in valid
/// places, so that a reader finds something.
class RandomDocument
{
public:
    explicit RandomDocument(quint32 seed) : m_random(seed) {}

    QByteArray text()
    {
        QByteArray content;
        while (m_elements < 70) {
            content += element(oneOf(topLevel), 1);
        }
        return "<Template>" + content + "</Template>";
    }

private:
    struct Attribute
    {
        const char *name;
        QByteArrayList values;
    };
    struct Element
    {
        const char *name;
        QByteArrayList children;
        std::vector<Attribute> attributes;
    };

    static const std::vector<Element> &vocabulary()
    {
        static const QByteArrayList texts{"", "a", "b", " c "};
        static const QByteArrayList numbers{"", "0", "1", "2", "-3", "4.5", "x"};
        static const QByteArrayList properties{
            "P", "Q", "P_FK", "OBJ_Instrumented", "OBJ_Maintenance", "OBJ_Type", "OBJ_City"};
        static const QByteArrayList displays{"A", "A_Key", ""};
        static const QByteArrayList tables{"SECTION", "NODE", ""};
        static const QByteArrayList flags{"true", "false"};
        static const QByteArrayList textItem{"TextItem"};
        static const QByteArrayList bound{"BoundProperty"};
        static const std::vector<Element> elements = {
            {"Container", {}, {}},
            {"TemplateIdentifier",
             {},
             {{"Id", texts}, {"Description", texts}, {"SystemOfUnits", {"Metric", "Imperial", "a"}}}},
            {"Name", {}, {}},
            {"Version", {}, {}},
            {"ClassificationColorPresets", {"ClassificationColorPreset", "ClassificationColorPreset"}, {}},
            {"ClassificationColorPreset",
             {"PresetProperty", "PresetProperty"},
             {{"Scope", {"Section", "Section", "Node"}},
              {"ClassificationColorName", texts},
              {"Chapter", {"Color", "a"}}}},
            {"PresetProperty", {}, {{"PropertyName", texts}}},
            {"AssignedCatalogs", {"Catalog", "Catalog"}, {}},
            {"Catalog", {}, {{"Id", texts}, {"Country", texts}, {"Language", texts}}},
            {"View",
             {"Column", "Column", "Column", "Column", "Column", "View"},
             {{"Id", {"1", "2", "3", "4"}},
              {"Name", {"V", "W"}},
              {"Description", texts},
              {"Kind", {"Detail", "Grid"}}}},
            {"Column",
             {"MandatoryRestriction", "BoundProperty", "BoundProperty", "Caption", "ToolTip",
              "VisibilityRestriction", "TextLengthRestriction", "NumericRangeRestriction",
              "ReadOnlyRestriction", "VirtualRestriction", "ValueListName", "DisplayFormat"},
             {{"DataType", {"Text", "Guid", "Integer", "Decimal", "Boolean", "Date", "Time", "Blob"}},
              {"ControlType", {"", "SimpleTextbox", "ComboList", "x"}},
              {"Width", numbers},
              {"ValueTransfer", flags},
              {"Unit", texts}}},
            {"MandatoryRestriction", {}, {}},
            {"BoundProperty", {"RefersTo"}, {{"PropertyName", properties}, {"ObjectName", tables}}},
            {"RefersTo", {}, {{"DisplayPropertyName", displays}, {"ObjectName", tables}}},
            {"Caption", textItem, {}},
            {"ToolTip", textItem, {}},
            {"TextItem", {}, {}},
            {"VisibilityRestriction", {"GroupLevel"}, {{"Simple", {"false", "false", "true"}}}},
            {"GroupLevel", {}, {{"Level1", flags}, {"Level2", flags}, {"Level5", flags}, {"Level9", flags}}},
            {"TextLengthRestriction", {}, {{"Max", numbers}}},
            {"NumericRangeRestriction",
             {},
             {{"From", numbers}, {"To", numbers}, {"Step", numbers}, {"Precision", numbers}}},
            {"ReadOnlyRestriction", {}, {}},
            {"VirtualRestriction", {}, {}},
            {"ValueListName", {}, {}},
            {"DisplayFormat", {"ValueFormatItem"}, {}},
            {"ValueFormatItem", {}, {{"Format", texts}}},
            {"ValueList",
             {"ValueListItem", "ValueListItem"},
             {{"Name", {"", "a", "b"}}, {"CompatibleListClassType", numbers}}},
            {"ValueListItem",
             {"Captions"},
             {{"Key", texts}, {"InternalKey", texts}, {"OrdinalIndex", numbers}}},
            {"Captions", textItem, {}},
            {"DefaultValues", {"DefaultValueScope", "DefaultValueScope"}, {}},
            {"DefaultValueScope", {"DefaultValueItem", "DefaultValueItem"}, {}},
            {"DefaultValueItem", bound, {{"Value", {"", "1", "true", "=Today()"}}, {"View", {"V", "W"}}}},
            {"ClassificationColorScopes",
             {"ClassificationColorScope", "ClassificationColorScope", "ClassificationColorScope"},
             {}},
            {"ClassificationColorScope",
             {"ClassificationColor", "ClassificationColor", "ClassificationColor"},
             {{"Name", {"ClassColorDefault", "ClassColorDefault", "ClassColorDefault", "a"}},
              {"Scope", {"Section", "Section", "Lateral", "Lateral", "Node"}}}},
            {"ClassificationColor", {"Color", "TextA", "TextB"}, {{"From", numbers}, {"To", numbers}}},
            {"Color", {}, {{"Html", texts}}},
            {"TextA", textItem, {}},
            {"TextB", textItem, {}},
        };
        return elements;
    }

    static const Element &elementOf(const QByteArray &name)
    {
        for (const auto &row : vocabulary()) {
            if (name == row.name) {
                return row;
            }
        }
        qFatal("No element %s", name.constData());
        Q_UNREACHABLE();
    }

    int upTo(int end) { return m_random.bounded(end); }
    bool isChance(int percent) { return upTo(100) < percent; }
    QByteArray oneOf(const QByteArrayList &list) { return list.at(upTo(list.size())); }

    QByteArray anyName()
    {
        const auto &all = vocabulary();
        return all[static_cast<std::size_t>(upTo(static_cast<int>(all.size())))].name;
    }

    QByteArray element(const QByteArray &name, int depth)
    {
        ++m_elements;
        const Element &kind = elementOf(name);
        QByteArray text = "<" + name;
        for (const auto &attribute : kind.attributes) {
            if (isChance(80)) {
                text += QByteArray(" ") + attribute.name + "=\"" + oneOf(attribute.values) + "\"";
            }
        }
        if (name == "Column") {
            // With equal positions the order would be undefined.
            text += " Ordinal=\"" + QByteArray::number((m_elements * 7919) % 10007) + "\"";
        }
        return text + ">" + content(kind, depth) + "</" + name + ">";
    }

    QByteArray content(const Element &kind, int depth)
    {
        QByteArray text;
        const int children = depth > 8 ? 0 : kind.children.size() + upTo(2);
        for (int i = 0; i < children; ++i) {
            if (i < kind.children.size() && isChance(65)) {
                text += element(kind.children.at(i), depth + 1);
            } else if (isChance(20)) {
                text += element(anyName(), depth + 1);
            } else if (isChance(20)) {
                text += element("Container", depth + 1);
            }
        }
        return isChance(50) ? "ab" + text : text + "a";
    }

    const QByteArrayList topLevel{"View",
                                  "View",
                                  "View",
                                  "ValueList",
                                  "DefaultValues",
                                  "ClassificationColorScopes",
                                  "ClassificationColorPresets",
                                  "AssignedCatalogs",
                                  "TemplateIdentifier",
                                  "Name",
                                  "Version",
                                  "Container"};
    QRandomGenerator m_random;
    int m_elements = 0;
};
