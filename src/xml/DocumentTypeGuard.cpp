#include "xml/DocumentTypeGuard_p.h"

#include "xml/XmlGuard_p.h"
#include "xml/XmlLimits_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

// Sums stay far from overflow, and well above all limits.
constexpr qint64 muchTooMuch = 1'000'000'000;

void addUpTo(qint64 &sum, qint64 more)
{
    sum = std::min(sum + more, muchTooMuch);
}

int deepestParenthesis(const QByteArray &text)
{
    int depth = 0;
    int deepest = 0;
    for (const char c : text) {
        // Those that close nothing, in a comment perhaps, must not make room for others.
        depth = c == '(' ? depth + 1 : c == ')' ? std::max(0, depth - 1) : depth;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

/// The text of an entity as a parser keeps it: with characters in place of references to their numbers, and
/// the replacement character for those that are not ASCII.
/// @param excess receives why it must not be used, if so
QString replacementText(const QByteArray &literal, QString &excess)
{
    static const QRegularExpression number(QStringLiteral("&#(?:x([0-9A-Fa-f]+)|([0-9]+));"));
    const QString text = QString::fromLatin1(literal);
    QString replaced;
    int end = 0;
    auto matches = number.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const bool isHexadecimal = !match.captured(1).isEmpty();
        const uint character = match.captured(isHexadecimal ? 1 : 2).toUInt(nullptr, isHexadecimal ? 16 : 10);
        // Qt's DOM parser cuts numbers to 16 bits, and so takes some for markup that are none.
        if (character > 0xffff && (character & 0xffff) < 0x80) {
            excess = QStringLiteral("an entity with a character that only some parsers take for markup");
        }
        replaced += text.midRef(end, match.capturedStart() - end);
        replaced += character < 0x80 ? QChar(character) : QChar(QChar::ReplacementCharacter);
        end = match.capturedEnd();
    }
    return replaced += text.midRef(end);
}

bool isSpace(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// Takes the next word from a text, up to a space.
QByteArray takeWord(const QByteArray &text, int &at)
{
    while (at < text.size() && isSpace(text[at])) {
        ++at;
    }
    const int begin = at;
    while (at < text.size() && !isSpace(text[at])) {
        ++at;
    }
    return text.mid(begin, at - begin);
}

/// The literal that is next in a text, without its quotes; null when something else is.
QByteArray nextLiteral(const QByteArray &text, int at)
{
    while (at < text.size() && isSpace(text[at])) {
        ++at;
    }
    const char quote = at < text.size() ? text[at] : '\0';
    const int end = quote == '"' || quote == '\'' ? text.indexOf(quote, at + 1) : -1;
    return end < 0 ? QByteArray() : text.mid(at + 1, end - at - 1);
}

} // namespace

DocumentTypeGuard::Cost &DocumentTypeGuard::Cost::operator+=(const Cost &other)
{
    addUpTo(characters, other.characters);
    addUpTo(references, other.references);
    addUpTo(elements, other.elements);
    addUpTo(namespaceDeclarations, other.namespaceDeclarations);
    depth = std::max(depth, other.depth);
    nesting = std::max(nesting, other.nesting);
    if (excess.isEmpty()) {
        excess = other.excess;
    }
    return *this;
}

QString DocumentTypeGuard::read(const QByteArray &documentType)
{
    if (documentType.count('<') > Limits::documentTypeDeclarations) {
        return QStringLiteral("more than %1 declarations in the document type")
            .arg(Limits::documentTypeDeclarations);
    }
    if (deepestParenthesis(documentType) > Limits::contentModelDepth) {
        return QStringLiteral("a content model that nests more than %1 levels")
            .arg(Limits::contentModelDepth);
    }
    // What they stand for could only be told by reading declarations that are put together of pieces.
    static const QRegularExpression parameterReference(QStringLiteral("%[^\\s%;\"']+;"));
    if (parameterReference.match(QString::fromLatin1(documentType)).hasMatch()) {
        return QStringLiteral("a reference to a parameter entity in the document type");
    }
    readEntities(documentType);
    if (!documentType.contains("<!ATTLIST")) {
        return QString();
    }
    // The parsers put entities into defaults as they read them.
    const Cost references = reckonReferences(QString::fromLatin1(documentType), 0);
    m_defaultAttributes = (documentType.count('"') + documentType.count('\'')) / 2;
    m_defaultCharacters = documentType.size() + references.characters;
    m_defaultNamespaceDeclarations = documentType.count("xmlns");
    return excessOf(references);
}

QString DocumentTypeGuard::excessOf(const Cost &references)
{
    if (references.references > Limits::entityReferences) {
        return QStringLiteral("more than %1 references to entities").arg(Limits::entityReferences);
    }
    if (references.characters > Limits::entityCharacters) {
        return QStringLiteral("entities that come to more than %1 characters").arg(Limits::entityCharacters);
    }
    if (references.nesting > Limits::entityNesting) {
        return QStringLiteral("more than %1 entities in each other").arg(Limits::entityNesting);
    }
    return references.excess;
}

void DocumentTypeGuard::readEntities(const QByteArray &documentType)
{
    // Some of these may stand in comments and in texts. All are taken for declarations, also those within
    // each other, so that none can hide another.
    static const QByteArray keyword = "<!ENTITY";
    int at = 0;
    while ((at = documentType.indexOf(keyword, at)) >= 0) {
        at += keyword.size();
        int behindName = at;
        QByteArray name = takeWord(documentType, behindName);
        if (name == "%") {
            name = takeWord(documentType, behindName);
        }
        const QByteArray text = nextLiteral(documentType, behindName);
        if (!text.isNull()) {
            m_entities[name].texts.append(text);
        }
    }
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOf(const QByteArray &entityName)
{
    return reckon(entityName, 1);
}

DocumentTypeGuard::Cost DocumentTypeGuard::reckon(const QByteArray &entityName, int nesting)
{
    const auto found = m_entities.constFind(entityName);
    if (found == m_entities.cend()) {
        return {};
    }
    if (found->isReckoned) {
        return found->cost;
    }
    Cost cost;
    cost.references = 1;
    cost.nesting = 1;
    if (nesting > Limits::entityNesting) {
        // An entity that contains itself ends here.
        cost.nesting = nesting;
        return cost;
    }
    // Whichever declaration of a name a parser takes, it is among these.
    const QList<QByteArray> texts = found->texts;
    for (const auto &text : texts) {
        cost += reckonText(text, nesting);
    }
    Entity &entity = m_entities[entityName];
    entity.cost = cost;
    entity.isReckoned = true;
    return cost;
}

DocumentTypeGuard::Cost DocumentTypeGuard::reckonText(const QByteArray &literal, int nesting)
{
    Cost own;
    const QString text = replacementText(literal, own.excess);
    own.characters = text.size();

    XmlGuard guard;
    const QByteArray markup = text.toLatin1();
    guard.follow(markup.constData(), markup.size());
    own.elements = guard.elements();
    own.namespaceDeclarations = guard.namespaceDeclarations();
    static const QRegularExpression unfinishedReference(QStringLiteral("&(?![^&;\\s]+;)"));
    if (own.excess.isEmpty()) {
        const bool isWhole = guard.isWhole() && !unfinishedReference.match(text).hasMatch();
        own.excess = isWhole ? guard.excess() : QStringLiteral("an entity that begins or ends within markup");
    }

    Cost inner = reckonReferences(text, nesting + 1);
    own.depth = guard.deepest() + inner.depth;
    own.nesting = inner.nesting + 1;
    inner.depth = 0;
    inner.nesting = 0;
    return own += inner;
}

DocumentTypeGuard::Cost DocumentTypeGuard::reckonReferences(const QString &text, int nesting)
{
    static const QRegularExpression reference(QStringLiteral("&([^#&;\\s][^&;\\s]*);"));
    Cost cost;
    auto matches = reference.globalMatch(text);
    while (matches.hasNext() && cost.excess.isEmpty()) {
        const QString name = matches.next().captured(1);
        cost += reckon(name.toLatin1(), nesting);
        if (name.contains(QChar::ReplacementCharacter)) {
            cost.excess = QStringLiteral("an entity with a reference that is put together of characters");
        }
    }
    return cost;
}

} // namespace Tobrix::Templates
