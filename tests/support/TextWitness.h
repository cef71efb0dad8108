#pragma once

#include <QString>

/// A text that detects whether it is still shared. Given to an object, it shows whether the object still
/// exists.
class TextWitness
{
public:
    explicit TextWitness(const QString &text = QStringLiteral("witness")) : m_text(text) { m_text.detach(); }

    QString text() const { return m_text; }
    bool isHeld() const { return !m_text.isDetached(); }

private:
    QString m_text;
};
