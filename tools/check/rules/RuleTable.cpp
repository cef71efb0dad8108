#include "tools/check/rules/RuleTable.h"

#include "tools/check/rules/ColumnRules.h"
#include "tools/check/rules/DefaultRules.h"
#include "tools/check/rules/DocumentRules.h"
#include "tools/check/rules/LegendRules.h"
#include "tools/check/rules/ListRules.h"
#include "tools/check/rules/ValueRules.h"

#include <algorithm>

namespace Tobrix::Tools {

// clang-format off

const std::vector<Rule> &allRules()
{
    static const std::vector<Rule> rules = {
    // Document
    {"xml-malformed", Severity::Error, Formats::Both, checkWellFormed,
     "the file is not well-formed XML",
     "The parser of the file's format stops at the fault. Of a file of the current format the host "
     "gets the tags and texts that are whole up to there, without a word about the rest. A file of the "
     "legacy format is refused. A file that was cut off is at fault where it ends. No other rule looks at "
     "such a file: mend this first.",
     "<Caption><TextItem>Pipe & fittings</TextItem></Caption>",
     "<Caption><TextItem>Pipe &amp; fittings</TextItem></Caption>", true},
    {"limit-exceeded", Severity::Error, Formats::Both, checkLimits,
     "the file asks for more than the library gives",
     "Templates come from other offices, so that the library keeps what one may ask of the host "
     "within limits: the nesting depth, the attributes of an element, the size of a document type, "
     "columns and items in all. Nothing of a file beyond a limit is used: in the current format the "
     "host gets an empty template, in the legacy format none. No other rule looks at such a file.",
     "<Template a1=\"\" a2=\"\" ...> and so on, up to 257 attributes",
     "<Template a1=\"\" a2=\"\" ...> and so on, up to 256 at most", true},
    {"wrong-folder", Severity::Error, Formats::Both, checkFolder,
     "a template of one format lies where the host expects the other",
     "The host reads a file as the current format when its path contains \"templates_new/\", and as the "
     "legacy format otherwise; it does not look into the file. In the wrong folder a template is read "
     "and found empty. Move the file. No other rule looks at it until then.",
     "templates/sewer.xml:  <ProjectStandard><TemplateIdentifier Id=\"SEW\"/></ProjectStandard>",
     "templates_new/sewer.xml:  <ProjectStandard><TemplateIdentifier Id=\"SEW\"/></ProjectStandard>", true},
    {"root-unknown", Severity::Error, Formats::Legacy, checkRoot,
     "the root element is unknown, so nothing is read",
     "A file of the legacy format begins with TobrixTemplate or TXSYS. Below an element that the host "
     "does not know it reads nothing, and below an unknown root that is the whole file: the template "
     "is empty.",
     "<Template><SYSTPL>...</SYSTPL></Template>",
     "<TobrixTemplate><SYSTPL>...</SYSTPL></TobrixTemplate>", true},
    {"document-type-unchecked", Severity::Note, Formats::Both, checkDocumentType,
     "the document type adds what the checker does not follow",
     "A document type may declare entities that hold elements, and attributes that elements get "
     "without having them. The parsers add all that to the template, but it has no place in the file "
     "that a finding could name. The rest of the file is not checked either. Write out what the "
     "document type adds.",
     "<!DOCTYPE T [<!ENTITY rows \"<Column/>\">]>",
     "<!DOCTYPE T [<!ENTITY owner \"City of Linden\">]>", true},
    {"attribute-repeated", Severity::Warning, Formats::Current, checkRepeatedAttributes,
     "an attribute is given twice",
     "The parser of the current format keeps the last of them and says nothing, although no XML "
     "document may have two. In the legacy format the same is a fault that the file is refused for "
     "(xml-malformed). Remove the one that is not meant.",
     "<Column DataType=\"Text\" Width=\"80\" Width=\"120\"/>",
     "<Column DataType=\"Text\" Width=\"120\"/>"},
    {"entity-unknown", Severity::Warning, Formats::Both, checkEntities,
     "the text refers to an entity that nothing declares",
     "XML knows &lt; &gt; &amp; &quot; and &apos;. Others, such as those of HTML, have to be "
     "declared. The parser of the current format leaves a reference to an unknown one out of the "
     "text; in the legacy format it is a fault that the file is refused for (xml-malformed), unless the "
     "document type names another file (SYSTEM, PUBLIC). The host does not read that file: a reference "
     "then cuts the text in pieces, of which the host reads one at most, and stands in an attribute as it "
     "is. Write the character itself, or its number.",
     "<TextItem>Length&nbsp;in m</TextItem>",
     "<TextItem>Length&#160;in m</TextItem>"},
    {"character-undecodable", Severity::Warning, Formats::Both, checkEncoding,
     "the file has bytes that are no character of its encoding",
     "A file is read in the encoding that its XML declaration names, and in UTF-8 where it names none. "
     "An editor that saves it in another one, such as Windows-1252, leaves bytes in it that mean nothing "
     "there, often for letters with accents. The parser puts U+FFFD in their place and says nothing; "
     "captions show it as a question mark, and names are found no more. In the legacy format bytes that "
     "are no UTF-8 are a fault that the file is refused for (xml-malformed). Save the file in the encoding "
     "that it declares.",
     "a file saved as Windows-1252 that begins with <?xml version=\"1.0\" encoding=\"UTF-8\"?>",
     "the same file, saved as UTF-8"},
    {"section-unreachable", Severity::Warning, Formats::Both, checkReachability,
     "a section stands where none is looked for",
     "In the legacy format sections (SYSTPL, PROGVIEW, SYSCOL, SYSLIST, LegendOfClassification) are "
     "read below TobrixTemplate and TXSYS only, not within another section or an element that the "
     "host does not know. In the current format a Column is read within a View, a ValueListItem "
     "within a ValueList, and so on. Elsewhere they describe nothing. Move them.",
     "<PROGVIEW>...<SYSCOL>...</SYSCOL></PROGVIEW>",
     "<PROGVIEW>...</PROGVIEW><SYSCOL>...</SYSCOL>"},
    {"unknown-element", Severity::Warning, Formats::Both, checkElementNames,
     "an element means nothing to the host",
     "Names are compared exactly, and an element of another name is not read. It is a warning when "
     "the name is near a known one, or known in another section only; else a note, since a host may "
     "keep data of its own in a template. In the current format an unknown element around known ones "
     "that are read there is no finding, since these are found at any depth, unless its name is near a "
     "known one; a known one where the host does not look for it, as a Caption in a View, is a note.",
     "<ToolTips><TextItem>Inner diameter</TextItem></ToolTips>",
     "<ToolTip><TextItem>Inner diameter</TextItem></ToolTip>"},
    {"unknown-attribute", Severity::Warning, Formats::Both, checkAttributeNames,
     "an attribute means nothing to the host",
     "Names are compared exactly, and an attribute of another name is not read. It is a warning when "
     "the name is near a known one of its element, or when the element has a part of that name, else a note. In the legacy format only "
     "class has attributes. Those of other vocabularies (xml:lang, xsi:schemaLocation) are no finding. A "
     "TextItem may have any: texts in several languages need one.",
     "<Column Datatype=\"Text\"/>",
     "<Column DataType=\"Text\"/>"},
    {"element-not-first", Severity::Warning, Formats::Current, checkFirstElements,
     "the name or version of the template is read from elsewhere",
     "The host takes the first Name and the first Version of the whole document for the template's, "
     "wherever they stand. A Name within a view that comes earlier, or within an element that the host "
     "does not know, becomes the key of the template. Put the header before everything else.",
     "<View><Name>Form</Name></View> ... <TemplateIdentifier "
     "Id=\"SEW\"><Name>Sewer</Name></TemplateIdentifier>",
     "<TemplateIdentifier Id=\"SEW\"><Name>Sewer</Name></TemplateIdentifier> ... <View Name=\"Form\"/>"},
    {"element-repeated", Severity::Warning, Formats::Both, checkRepeatedElements,
     "an element stands twice where the host takes one",
     "In the current format the first one counts and a second is ignored: of header elements in the "
     "document, of the parts of a column in their column. In the legacy format a second one "
     "overwrites the first, in a second SYSTPL as well. Texts in several languages (TextItem) are no "
     "finding.",
     "<Column><Caption>...</Caption><Caption>...</Caption></Column>",
     "<Column><Caption>...</Caption></Column>"},
    {"nested-container", Severity::Warning, Formats::Current, checkNesting,
     "a container within another of its kind lends it what it holds",
     "Elements are found at any depth: an outer view gets the columns of a view within it as well, a "
     "list the items of a list, a legend the classes of a legend, and a column the parts that it does "
     "not have itself. An item of a list, a default value and a class of a legend take what they do not "
     "have before the inner one. Close the outer one before the inner one begins.",
     "<View Id=\"A\"><View Id=\"B\"><Column/></View></View>",
     "<View Id=\"A\"/><View Id=\"B\"><Column/></View>"},
    {"missing-id", Severity::Warning, Formats::Both, checkIds,
     "the template, or a view, has no id",
     "The id tells templates apart, and the host's registry is asked by it. Views are filed under "
     "theirs: of several without one only the last is left. The id is Id in the current format, "
     "TPL_PK and PV_PK in the legacy format.",
     "<View Name=\"SectionDetail\"/>",
     "<View Id=\"{3158aece-1a16-4c8a-9be2-89d1e2b0ee6a}\" Name=\"SectionDetail\"/>"},
    {"missing-key", Severity::Warning, Formats::Both, checkKeys,
     "the template, or a view, has no key",
     "The key is the name that the host and its users know the template by, and by which the host "
     "finds a view. It is the text of Name, and a view's attribute Name, in the current format; "
     "TPL_Key and PV_Key in the legacy format.",
     "<PROGVIEW><PV_PK>V1</PV_PK></PROGVIEW>",
     "<PROGVIEW><PV_PK>V1</PV_PK><PV_Key>SectionDetail</PV_Key></PROGVIEW>"},
    {"unit-unknown", Severity::Warning, Formats::Current, checkUnitSystem,
     "the system of units is none that the host knows",
     "SystemOfUnits is Metric or Imperial, spelled exactly so. With another one the template has no "
     "unit.",
     "<TemplateIdentifier SystemOfUnits=\"metric\"/>",
     "<TemplateIdentifier SystemOfUnits=\"Metric\"/>"},
    {"type-empty", Severity::Note, Formats::Both, checkType,
     "nobody gives the template a type",
     "A template without a type gets the one that the host's registry has for its id. When the "
     "registry does not know the id either, the type stays empty. The checker asks a small host of "
     "its own; tell it what yours knows with --host-config.",
     "<SYSTPL><TPL_PK>SEW</TPL_PK></SYSTPL>",
     "<SYSTPL><TPL_PK>SEW</TPL_PK><TPL_Type>SEWER</TPL_Type></SYSTPL>"},
    // Values
    {"not-a-number", Severity::Error, Formats::Both, checkNumbers,
     "a value that should be a number is none",
     "Numbers are read without units, thousands separators or decimal commas, and widths and orders "
     "without decimal places. What does not convert reads as 0, which for a limit is another limit; a "
     "limit too large for any number reads as infinite, or as the largest whole number.",
     "<Column Width=\"120px\"/>",
     "<Column Width=\"120\"/>"},
    {"number-out-of-range", Severity::Warning, Formats::Both, checkNumberRanges,
     "a number does not fit where it is kept",
     "Whole numbers have 32 bits, -2147483648 to 2147483647. One beyond that reads as 0; a limit of a "
     "whole-number column, or a text length of the current format, becomes the nearest that fits.",
     "<Column Ordinal=\"9999999999\"/>",
     "<Column Ordinal=\"9999\"/>"},
    {"fraction-truncated", Severity::Warning, Formats::Both, checkFractions,
     "a number loses its decimal places",
     "The range and the step of a whole-number column, and a text length of the current format, are "
     "read as decimal numbers and cut to whole ones: a step of 0.5 becomes 0. Use whole numbers, or a "
     "column for decimal ones.",
     "<Column DataType=\"Integer\"><NumericRangeRestriction Step=\"0.5\"/></Column>",
     "<Column DataType=\"Integer\"><NumericRangeRestriction Step=\"1\"/></Column>"},
    {"not-a-boolean", Severity::Warning, Formats::Both, checkFlags,
     "a flag is neither \"true\" nor \"false\"",
     "Only the four letters \"true\" set a flag; \"True\", \"1\" and \"yes\" read as false. It is a note "
     "where the text means false anyway, as \"False\" and \"0\" do. Simple works the other way round: "
     "only \"false\" lets group levels count.",
     "<COL_Visible>True</COL_Visible>",
     "<COL_Visible>true</COL_Visible>"},
    {"white-space-around-value", Severity::Warning, Formats::Both, checkSpaceAround,
     "white space stands around a value that is compared exactly",
     "Names, codes, keys and flags are compared letter by letter, blanks and line breaks included. A "
     "list called \" Material\" is not the list Material, and \" true\" is not true. One of white space "
     "alone is not an empty one. Numbers are not affected.",
     "<ValueListName> Material </ValueListName>",
     "<ValueListName>Material</ValueListName>"},
    {"white-space-captured", Severity::Warning, Formats::Legacy, checkCapturedSpace,
     "an empty element takes the white space behind it",
     "In SYSTPL, PROGVIEW and SYSLIST a text belongs to the last element that began before it, even "
     "behind that element's end. The line break and the blanks after an empty element so become its "
     "value. Leave the element out. (In SYSCOL this cannot happen.)",
     "<TPL_Description/>\n  <TPL_Version>1</TPL_Version>",
     "<TPL_Version>1</TPL_Version>"},
    {"text-ignored", Severity::Warning, Formats::Legacy, checkIgnoredTexts,
     "of a text in pieces only one is read",
     "A comment, an instruction, CDATA or a reference to an unknown entity cuts a text into pieces. In "
     "SYSTPL, PROGVIEW and SYSLIST the first piece counts, be it white space; in SYSCOL only a piece that "
     "directly follows the start tag; in legends the last one. Put the text into one piece.",
     "<COL_Caption><!-- short -->Length</COL_Caption>",
     "<COL_Caption>Length</COL_Caption>"},
    {"text-not-read", Severity::Warning, Formats::Current, checkUnreadTexts,
     "a text stands where the host reads none",
     "Caption, ToolTip, Captions, TextA and TextB have their text in a TextItem: what stands beside it is "
     "not read, and without one the host shows no text at all. A restriction counts by being there, so "
     "that one with the text \"false\" still applies. It is a note where a text stands between the "
     "elements that a View, a Column and the like are made of, and where it stands in an element that has "
     "none of its attributes instead.",
     "<Caption>Length</Caption>",
     "<Caption><TextItem>Length</TextItem></Caption>"},
    // Views and columns
    {"column-type-unknown", Severity::Error, Formats::Both, checkColumnTypes,
     "a column has a data type that the host does not know",
     "The current format knows Text, Guid, Integer, Decimal, Boolean, Date and Time; the legacy "
     "format TXT, GUI, INT, DEC, BOL, DAT and TIM. A column of another type, or of none, is not "
     "built: in the current format its place in the view stays, with nothing in it; in the legacy "
     "format it is dropped.",
     "<Column DataType=\"text\"/>",
     "<Column DataType=\"Text\"/>"},
    {"control-type-unknown", Severity::Warning, Formats::Both, checkControlTypes,
     "a column has a control that the host does not know",
     "In the current format a control of an unknown name is no control, number 0. Mind SimpleTextbox, "
     "MaskedTextbox and MultiLineTextbox beside ComboTextBox. In the legacy format the number is "
     "handed to the host as it is; those from 0 to 19 have a meaning.",
     "<Column ControlType=\"SimpleTextBox\"/>",
     "<Column ControlType=\"SimpleTextbox\"/>"},
    {"control-type-unfit", Severity::Warning, Formats::Both, checkControlFit,
     "a control cannot edit what its column holds",
     "The host gets type and control as they are, and shows an editor that does not suit the value: a "
     "date picker for a text, a spin box for a boolean. docs/checking.md has the table.",
     "<Column DataType=\"Text\" ControlType=\"DateOnlyPicker\"/>",
     "<Column DataType=\"Date\" ControlType=\"DateOnlyPicker\"/>"},
    {"view-duplicate-id", Severity::Error, Formats::Both, checkViewIds,
     "two views have the same id",
     "Views are filed under their ids: the later one replaces the earlier one. In the current format "
     "the earlier one's columns are lost with it; in the legacy format the later one gets the columns "
     "of both.",
     "<View Id=\"V1\" Name=\"Form\"/><View Id=\"V1\" Name=\"Grid\"/>",
     "<View Id=\"V1\" Name=\"Form\"/><View Id=\"V2\" Name=\"Grid\"/>"},
    {"view-duplicate-key", Severity::Warning, Formats::Both, checkViewKeys,
     "two views have the same key",
     "The host finds a view by its key and gets the first that has it; but views come in no defined "
     "order, so that it may be the one today and the other tomorrow. In the current format defaults "
     "for that name go to both.",
     "<View Id=\"V1\" Name=\"Form\"/><View Id=\"V2\" Name=\"Form\"/>",
     "<View Id=\"V1\" Name=\"Form\"/><View Id=\"V2\" Name=\"Grid\"/>"},
    {"view-empty", Severity::Warning, Formats::Both, checkEmptyViews,
     "a view has no columns",
     "The host gets the view and shows an empty form. In the current format some fields of sections and "
     "nodes are left out of every view (column-excluded): a view of nothing else is empty. In the legacy "
     "format columns come to a view by COL_ProgView_FK, which has to be the view's id, and those of an "
     "unknown data type do not come at all.",
     "<View Id=\"V1\" Name=\"Form\"/>",
     "<View Id=\"V1\" Name=\"Form\"><Column>...</Column></View>"},
    {"column-duplicate-binding", Severity::Warning, Formats::Both, checkDuplicateBindings,
     "two columns of a view are bound to the same field",
     "The host finds a column by the field that it is bound to, and gets the one that is sorted "
     "first. What is entered into the two may contradict each other.",
     "<BoundProperty PropertyName=\"OBJ_Length\" ObjectName=\"SECTION\"/> in two columns of one view",
     "<BoundProperty PropertyName=\"OBJ_Length\" ObjectName=\"SECTION\"/> in one of them"},
    {"column-unbound", Severity::Warning, Formats::Both, checkBindings,
     "a column is bound to no field",
     "A column without a field has nothing to show and nowhere to keep what is entered. Virtual "
     "columns, titles and buttons need none.",
     "<Column DataType=\"Text\"><Caption>...</Caption></Column>",
     "<Column DataType=\"Text\"><BoundProperty PropertyName=\"OBJ_Name\" ObjectName=\"NODE\"/></Column>"},
    {"column-excluded", Severity::Warning, Formats::Current, checkExcludedColumns,
     "a visible column is one that is left out of every view",
     "Some fields of sections and nodes (offsets, activity type, maintenance flags) are left out of "
     "the views of the current format, whatever a template says. Remove the column, or do not declare "
     "it visible.",
     "<Column><BoundProperty PropertyName=\"OBJ_Maintenance\" "
     "ObjectName=\"NODE\"/><VisibilityRestriction/></Column>",
     "<Column><BoundProperty PropertyName=\"OBJ_Remarks\" "
     "ObjectName=\"NODE\"/><VisibilityRestriction/></Column>"},
    {"column-always-hidden", Severity::Warning, Formats::Both, checkAlwaysHidden,
     "a visible column is one that is never shown",
     "Street and city of a section, and their keys, are hidden whatever a template says: the table's "
     "type decides, which the host knows (--host-config). Do not declare the column visible.",
     ""
     "<COL_Bound_Column>OBJ_City</COL_Bound_Column><TDIR_Key>SECTION</TDIR_Key><COL_Visible>true</COL_Visible>",
     ""
     "<COL_Bound_Column>OBJ_City</COL_Bound_Column><TDIR_Key>SECTION</TDIR_Key><COL_Visible>false</COL_Visible>"},
    {"default-forced", Severity::Note, Formats::Both, checkForcedDefaults,
     "a column gets a default that the file does not give",
     "The type of a section's object, and of its nodes, defaults to NOD where a text column has no "
     "default at all: the table's type decides, which the host knows (--host-config). Write the "
     "default down, so that people see it.",
     "<COL_Bound_Column>OBJ_Type</COL_Bound_Column><TDIR_Key>SECTION</TDIR_Key>",
     ""
     "<COL_Bound_Column>OBJ_Type</COL_Bound_Column><TDIR_Key>SECTION</TDIR_Key><COL_Default>NOD</COL_Default>"},
    {"sort-order-tie", Severity::Warning, Formats::Both, checkSortOrders,
     "columns of a view have the same sort order",
     "Columns are sorted by Ordinal, or COL_SortOrder. Of those that are equal either may come first, "
     "and that may change. A column without a sort order has 0. Hidden columns are not looked at.",
     "<Column Ordinal=\"10\"/><Column Ordinal=\"10\"/>",
     "<Column Ordinal=\"10\"/><Column Ordinal=\"20\"/>"},
    {"group-level-ignored", Severity::Warning, Formats::Current, checkGroupLevels,
     "group levels are not read",
     "Group levels count when Simple is \"false\" and GroupLevel stands within VisibilityRestriction; "
     "else the column is in no group. An attribute of GroupLevel stands for the level that is the "
     "sixth character of its name, as in Level1.",
     "<VisibilityRestriction Simple=\"true\"><GroupLevel Level1=\"true\"/></VisibilityRestriction>",
     "<VisibilityRestriction Simple=\"false\"><GroupLevel Level1=\"true\"/></VisibilityRestriction>"},
    {"range-empty", Severity::Warning, Formats::Both, checkEmptyRanges,
     "no value is within the range of a column",
     "The lower limit is above the upper one, and the host hands both to its editor.",
     "<NumericRangeRestriction From=\"100\" To=\"10\"/>",
     "<NumericRangeRestriction From=\"10\" To=\"100\"/>"},
    {"range-ignored", Severity::Warning, Formats::Both, checkIgnoredRanges,
     "a column that has no range is given one",
     "Only columns for whole and decimal numbers have a range and a step. On others they are dropped. "
     "A range of zeros is no finding: files are filled with them where there is no range.",
     "<Column DataType=\"Text\"><NumericRangeRestriction To=\"100\"/></Column>",
     "<Column DataType=\"Integer\"><NumericRangeRestriction To=\"100\"/></Column>"},
    {"length-ignored", Severity::Warning, Formats::Both, checkIgnoredLengths,
     "a column that has no text length is given one",
     "Only text columns have a length. On others it is dropped.",
     "<COL_DataType>INT</COL_DataType><COL_Length>10</COL_Length>",
     "<COL_DataType>TXT</COL_DataType><COL_Length>10</COL_Length>"},
    {"display-format-ignored", Severity::Warning, Formats::Both, checkIgnoredFormats,
     "a column that has no display format is given one",
     "Only date columns have a display format. On others, times included, it is dropped.",
     "<COL_DataType>TIM</COL_DataType><COL_DisplayFmt>hh:mm</COL_DisplayFmt>",
     "<COL_DataType>DAT</COL_DataType><COL_DisplayFmt>dd.MM.yyyy</COL_DisplayFmt>"},
    {"value-transfer-overwritten", Severity::Warning, Formats::Legacy, checkValueTransfers,
     "a reference takes back the value transfer",
     "COL_Template_FK, COL_Bound_TableDir_REF and COL_ValueTransfer are read into one flag, and the "
     "last one decides. A reference reads as false, unless it says \"true\". Put COL_ValueTransfer "
     "behind both.",
     "<COL_ValueTransfer>true</COL_ValueTransfer><COL_Template_FK>SEW</COL_Template_FK>",
     "<COL_Template_FK>SEW</COL_Template_FK><COL_ValueTransfer>true</COL_ValueTransfer>"},
    {"column-view-unknown", Severity::Error, Formats::Legacy, checkColumnViews,
     "a column belongs to a view that the file does not have",
     "COL_ProgView_FK is the PV_PK of a view, letter by letter. For a column of an unknown view the "
     "host refuses the whole file. A column of unknown data type is dropped before that.",
     "<PV_PK>V1</PV_PK> ... <COL_ProgView_FK>v1</COL_ProgView_FK>",
     "<PV_PK>V1</PV_PK> ... <COL_ProgView_FK>V1</COL_ProgView_FK>"},
    {"mandatory-hidden", Severity::Warning, Formats::Both, checkMandatoryHidden,
     "a column must have a value, but nobody sees it",
     "A column that is mandatory, not visible and without a default cannot be filled in, and records "
     "without it are not complete. Show it, or give it a default. Of dates and times only "
     "\"=Today()\" is a default, of booleans only \"true\"; a boolean with the default \"false\" is a "
     "note, since hosts may take it for that anyway. Identifiers (Guid, GUI) are the host's to make, and "
     "no finding.",
     "<COL_Mandatory>true</COL_Mandatory><COL_Visible>false</COL_Visible>",
     "<COL_Mandatory>true</COL_Mandatory><COL_Visible>true</COL_Visible>"},
    {"mandatory-read-only", Severity::Warning, Formats::Both, checkMandatoryReadOnly,
     "a column must have a value, but nobody may enter it",
     "A column that is mandatory, read-only and without a default cannot be filled in, and records "
     "without it are not complete. Open it, or give it a default. Of dates and times only "
     "\"=Today()\" is a default, of booleans only \"true\"; a boolean with the default \"false\" is a "
     "note. Identifiers (Guid, GUI) are no finding.",
     "<MandatoryRestriction/><ReadOnlyRestriction/>",
     "<MandatoryRestriction/>"},
    // Default values
    {"default-unused", Severity::Warning, Formats::Current, checkUnusedDefaults,
     "a default value reaches no column",
     "A default goes to the columns of the view whose Name is its View, that are bound to its "
     "property. The property of a column that refers to another object has the shown property behind "
     "a dot. A default that finds none is dropped.",
     "<DefaultValueItem View=\"Form\" Value=\"5\"><BoundProperty "
     "PropertyName=\"OBJ_Widht\"/></DefaultValueItem>",
     "<DefaultValueItem View=\"Form\" Value=\"5\"><BoundProperty "
     "PropertyName=\"OBJ_Width\"/></DefaultValueItem>"},
    {"default-view-is-id", Severity::Warning, Formats::Current, checkDefaultViews,
     "a default value names its view by the Id",
     "Defaults name a view by its Name. One that has the Id of the view reaches no column.",
     "<View Id=\"V1\" Name=\"Form\"/> ... <DefaultValueItem View=\"V1\" Value=\"5\"/>",
     "<View Id=\"V1\" Name=\"Form\"/> ... <DefaultValueItem View=\"Form\" Value=\"5\"/>"},
    {"default-unreachable", Severity::Warning, Formats::Current, checkUnreachableDefaults,
     "a default value misses a column that shows a key",
     "In a view of Kind Detail a mandatory column that ends in _FK and shows a _Key is bound to both, "
     "as in OBJ_Shape_FK.SHP_Key. A default with the same reference is for OBJ_Shape_FK alone, and is "
     "dropped. Give the default the whole path as its PropertyName.",
     "<BoundProperty PropertyName=\"OBJ_Shape_FK\"><RefersTo "
     "DisplayPropertyName=\"SHP_Key\"/></BoundProperty>",
     "<BoundProperty PropertyName=\"OBJ_Shape_FK.SHP_Key\"/>"},
    {"default-overwritten", Severity::Warning, Formats::Current, checkOverwrittenDefaults,
     "a second default value for the same column",
     "Of several defaults for one property in one view the last one counts.",
     "<DefaultValueItem View=\"Form\" Value=\"1\">...</DefaultValueItem><DefaultValueItem View=\"Form\" "
     "Value=\"2\">...</DefaultValueItem>",
     "<DefaultValueItem View=\"Form\" Value=\"2\">...</DefaultValueItem>"},
    {"default-not-a-number", Severity::Error, Formats::Both, checkDefaultNumbers,
     "the default value of a number is none",
     "A default that does not convert becomes 0, and new records start with that. The text \"nan\" does "
     "convert in a column for decimal numbers, to something that is in no range and equals nothing.",
     "<COL_DataType>INT</COL_DataType><COL_Default>ten</COL_Default>",
     "<COL_DataType>INT</COL_DataType><COL_Default>10</COL_Default>"},
    {"default-out-of-range", Severity::Warning, Formats::Both, checkDefaultRanges,
     "a default value is not within its column's range",
     "New records start with a value that the editor would not accept. A number that does not even fit "
     "into the column's type becomes 0 where numbers are whole, and infinite (or 0, when it is tiny) "
     "where they are decimal.",
     "<COL_RangeTo>10</COL_RangeTo><COL_Default>50</COL_Default>",
     "<COL_RangeTo>100</COL_RangeTo><COL_Default>50</COL_Default>"},
    {"default-too-long", Severity::Warning, Formats::Both, checkDefaultLengths,
     "a default value is longer than its column",
     "New records start with a text that the column cannot store. A length counts what QString counts: "
     "a character outside of the basic plane, such as an emoji, counts twice.",
     "<COL_Length>4</COL_Length><COL_Default>UNKNOWN</COL_Default>",
     "<COL_Length>10</COL_Length><COL_Default>UNKNOWN</COL_Default>"},
    {"default-ignored", Severity::Warning, Formats::Both, checkIgnoredDefaults,
     "a default value is one that the data type does not take",
     "Dates and times take only \"=Today()\", booleans only \"true\". Everything else is no default. "
     "Empty defaults, and \"false\" for booleans, are no finding.",
     "<COL_DataType>DAT</COL_DataType><COL_Default>today</COL_Default>",
     "<COL_DataType>DAT</COL_DataType><COL_Default>=Today()</COL_Default>"},
    {"default-not-in-list", Severity::Warning, Formats::Both, checkDefaultsInLists,
     "a default value is no item of the column's list",
     "New records start with a value that the list does not offer. Columns that take other values as "
     "well (ComboTextBox) or several at once (BitMask, MultipleChoice) are not looked at.",
     "a list of PVC and PP, and the default \"PE\"",
     "a list of PVC and PP, and the default \"PP\""},
    // Value lists
    {"list-unknown", Severity::Note, Formats::Both, checkUnknownLists,
     "a column uses a list that the file does not have",
     "The host finds no items for the column in the template. It may have a list of that name of its "
     "own. Names are compared exactly.",
     "<ValueList Name=\"Material\"/> ... <ValueListName>Materials</ValueListName>",
     "<ValueList Name=\"Material\"/> ... <ValueListName>Material</ValueListName>"},
    {"list-unused", Severity::Note, Formats::Both, checkUnusedLists,
     "no column uses a list",
     "The host gets the list and may have a use of its own for it.",
     "<ValueList Name=\"Material\">...</ValueList> and no column with that name",
     "<ValueListName>Material</ValueListName>"},
    {"list-item-duplicate", Severity::Warning, Formats::Both, checkDuplicateItems,
     "a list has the same item twice",
     "The host offers both, and cannot tell which one a stored value was.",
     "<ValueListItem Key=\"PVC\"/><ValueListItem Key=\"PVC\"/>",
     "<ValueListItem Key=\"PVC\"/><ValueListItem Key=\"PP\"/>"},
    {"list-item-too-long", Severity::Warning, Formats::Both, checkItemLengths,
     "an item is longer than a column that uses its list",
     "The host offers a value that the column cannot store. A length counts what QString counts: a "
     "character outside of the basic plane, such as an emoji, counts twice.",
     "<LIST_Item>CONCRETE</LIST_Item> for a column with <COL_Length>4</COL_Length>",
     "<LIST_Item>CONC</LIST_Item>"},
    {"list-order-lost", Severity::Warning, Formats::Both, checkListOrder,
     "the last list of all does not come in its sort order",
     "The host sorts the items of every list but the one whose name comes last. That one comes as the "
     "record keeps it: from the last item in the file to the first. Write its items in descending "
     "sort order.",
     "<ValueListItem Key=\"A\" OrdinalIndex=\"1\"/><ValueListItem Key=\"B\" OrdinalIndex=\"2\"/>",
     "<ValueListItem Key=\"B\" OrdinalIndex=\"2\"/><ValueListItem Key=\"A\" OrdinalIndex=\"1\"/>"},
    {"list-item-no-list", Severity::Error, Formats::Legacy, checkItemsWithoutList,
     "a list item names no list",
     "An item without any text in LIST_Name can be offered to nobody: the host takes the file for "
     "damaged and refuses it.",
     "<SYSLIST><LIST_Item>PVC</LIST_Item></SYSLIST>",
     "<SYSLIST><LIST_Name>Material</LIST_Name><LIST_Item>PVC</LIST_Item></SYSLIST>"},
    {"list-name-duplicate", Severity::Warning, Formats::Current, checkListNames,
     "two lists have the same name",
     "The host gets one list with the items of both. Its class type is that of the later one.",
     "<ValueList Name=\"Material\" CompatibleListClassType=\"1\"/><ValueList Name=\"Material\" "
     "CompatibleListClassType=\"2\"/>",
     "<ValueList Name=\"Material\" CompatibleListClassType=\"1\"/>"},
    // Legends
    {"legend-scope-ignored", Severity::Note, Formats::Current, checkLegendScopes,
     "a legend is none that the host shows",
     "Only the scheme named ClassColorDefault is read, and of it what is for Section and Lateral. "
     "Others may be the host's own. It is a warning when the name is near one of these.",
     "<ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"Sections\"/>",
     "<ClassificationColorScope Name=\"ClassColorDefault\" Scope=\"Section\"/>"},
    {"legend-range-reversed", Severity::Warning, Formats::Both, checkReversedLegendClasses,
     "no value falls into a class of a legend",
     "The lower bound is above the upper one. A bound that is not given is 0 in the current format "
     "and -1 in the legacy format.",
     "<class id=\"C1\" color=\"red\" numberFrom=\"10\" numberTo=\"5\"/>",
     "<class id=\"C1\" color=\"red\" numberFrom=\"5\" numberTo=\"10\"/>"},
    {"legend-overlap", Severity::Warning, Formats::Both, checkOverlaps,
     "two classes of a legend overlap",
     "Values in both have two colours, and the host takes one of them. Classes that share a bound do "
     "not overlap.",
     "<class id=\"C1\" numberFrom=\"0\" numberTo=\"5\"/><class id=\"C2\" numberFrom=\"4\" numberTo=\"9\"/>",
     "<class id=\"C1\" numberFrom=\"0\" numberTo=\"4\"/><class id=\"C2\" numberFrom=\"4\" numberTo=\"9\"/>"},
    {"legend-gap", Severity::Note, Formats::Both, checkGaps,
     "values between two classes of a legend are in none",
     "The host has no colour for such values. Whole-number classes one apart, 0 to 9 and 10 to 24, "
     "have no gap.",
     "<class id=\"C1\" numberFrom=\"0\" numberTo=\"4\"/><class id=\"C2\" numberFrom=\"6\" numberTo=\"9\"/>",
     "<class id=\"C1\" numberFrom=\"0\" numberTo=\"4\"/><class id=\"C2\" numberFrom=\"4\" numberTo=\"9\"/>"},
    {"legend-colour-invalid", Severity::Warning, Formats::Both, checkColours,
     "the colour of a class is none",
     "A colour is #rgb, #rrggbb, #aarrggbb or a colour name of SVG. The host gets the text as it is, "
     "and has to make something of it.",
     "<Color Html=\"1f78b4\"/>",
     "<Color Html=\"#1f78b4\"/>"},
    {"legend-text-lost", Severity::Warning, Formats::Legacy, checkLostLegends,
     "a caption or a class of a legend is lost",
     "A caption (legendA, legendB) goes to the last class before its end; one before any class goes "
     "nowhere. A class outside of any group goes to the group before it, and to Section where there is "
     "none. A second Section or Lateral drops the classes of the first, and a first one those that stand "
     "before it.",
     "<Section><legendA>Good</legendA><class id=\"C1\"/></Section>",
     "<Section><class id=\"C1\"><legendA>Good</legendA></class></Section>"},
    {"preset-incomplete", Severity::Note, Formats::Current, checkPresets,
     "the colours that a template starts with are not complete",
     "Of the presets with the Scope \"Section\" the host takes a ClassificationColorName, and the "
     "fields (PresetProperty) of one with the Chapter \"Color\". Without one of them it starts with "
     "less than the presets seem to say. It is a warning when none is for \"Section\", but "
     "one for something near it.",
     "<ClassificationColorPreset Scope=\"Section\" Chapter=\"Color\"/>",
     "<ClassificationColorPreset Scope=\"Section\" ClassificationColorName=\"Age\" "
     "Chapter=\"Color\"><PresetProperty PropertyName=\"OBJ_Year\"/></ClassificationColorPreset>"},
    };
    return rules;
}

// clang-format on

const Rule *ruleOf(const QString &id)
{
    const auto &rules = allRules();
    const auto rule = std::find_if(rules.begin(), rules.end(),
                                   [&id](const Rule &row) { return id == QLatin1String(row.id); });
    return rule == rules.end() ? nullptr : &*rule;
}

QString severityName(Severity severity)
{
    switch (severity) {
    case Severity::Note:
        return QStringLiteral("note");
    case Severity::Warning:
        return QStringLiteral("warning");
    case Severity::Error:
        break;
    }
    return QStringLiteral("error");
}

QString formatsName(Formats formats)
{
    switch (formats) {
    case Formats::Current:
        return QStringLiteral("current");
    case Formats::Legacy:
        return QStringLiteral("legacy");
    case Formats::Both:
        break;
    }
    return QStringLiteral("both");
}

} // namespace Tobrix::Tools
