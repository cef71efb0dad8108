#include "loading/DocumentTypeGuard_p.h"

#include "loading/Limits_p.h"

#include <QRegularExpression>

#include <algorithm>

namespace Tobrix::Templates {

namespace {

int deepestParenthesis(const QByteArray &text)
{
    int depth = 0;
    int deepest = 0;
    for (const char c : text) {
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        deepest = std::max(deepest, depth);
    }
    return deepest;
}

/// The text of an entity as a parser reads it: references to the ampersand's number are ampersands.
QString replacementText(const QByteArray &literal)
{
    static const QRegularExpression ampersand(QStringLiteral("&#(0*38|[xX]0*26);"));
    QString text = QString::fromLatin1(literal);
    int size = 0;
    do {
        size = text.size();
        text.replace(ampersand, QStringLiteral("&"));
    } while (text.size() != size);
    return text;
}

} // namespace

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
    if (documentType.contains("<!ATTLIST")) {
        m_defaultAttributes += (documentType.count('"') + documentType.count('\'')) / 2;
        m_defaultCharacters += documentType.size();
    }
    readEntities(documentType);
    return QString();
}

void DocumentTypeGuard::readEntities(const QByteArray &documentType)
{
    static const QRegularExpression declaration(
        QStringLiteral("<!ENTITY\\s+(?:%\\s+)?([^\\s\"'%]+)\\s+(\"[^\"]*\"|'[^']*')"));
    auto matches = declaration.globalMatch(QString::fromLatin1(documentType));
    while (matches.hasNext()) {
        const auto match = matches.next();
        // Whichever declaration of a name a parser takes, it is among these.
        m_entities[match.captured(1).toLatin1()].text += match.captured(2).toLatin1();
    }
}

DocumentTypeGuard::Cost DocumentTypeGuard::costOf(const QByteArray &entityName)
{
    return reckon(entityName, 0);
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
    // More than any document may have.
    constexpr Cost endless = {Limits::entityCharacters + 1, Limits::entityReferences + 1, Limits::depth + 1};
    if (nesting > Limits::entityNesting) {
        return endless;
    }

    static const QRegularExpression reference(QStringLiteral("&([^#&;\\s][^&;\\s]*);"));
    const QString text = replacementText(found->text);
    // A character given by its number may be the start of a tag as well.
    Cost cost = {text.size(), 1, text.count(QLatin1Char('<')) + text.count(QLatin1String("&#"))};
    auto matches = reference.globalMatch(text);
    while (matches.hasNext()) {
        const Cost inner = reckon(matches.next().captured(1).toLatin1(), nesting + 1);
        cost.characters = std::min(cost.characters + inner.characters, endless.characters);
        cost.references = std::min(cost.references + inner.references, endless.references);
        cost.startTags = std::min(cost.startTags + inner.startTags, endless.startTags);
    }
    Entity &entity = m_entities[entityName];
    entity.cost = cost;
    entity.isReckoned = true;
    return cost;
}

} // namespace Tobrix::Templates
