#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects Qt's own warnings during its lifetime.
class QtWarnings
{
public:
    QtWarnings()
    {
        collected().clear();
        m_previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &,
                                               const QString &message) { collected().append(message); });
    }
    ~QtWarnings() { qInstallMessageHandler(m_previous); }

    QStringList messages() const { return collected(); }

private:
    Q_DISABLE_COPY(QtWarnings)

    static QStringList &collected()
    {
        static QStringList messages;
        return messages;
    }

    QtMessageHandler m_previous;
};
