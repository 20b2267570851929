#include "action/MetaConnection.h"

#include <QByteArray>
#include <QMetaMethod>
#include <QObject>

CS_BEGIN_NAMESPACE

namespace {

// SIGNAL() and SLOT() put a one-character code in front of the signature.
QByteArray signature(const char* codedSignature)
{
    return QMetaObject::normalizedSignature(codedSignature + 1);
}

// A signal with default arguments is emitted only under its full signature; the shorter
// variants are clones that connect to it, as QObject::connect does.
int originalSignal(const QMetaObject& senderClass, int index)
{
    while (index > 0 && (senderClass.method(index).attributes() & QMetaMethod::Cloned))
        --index;
    return index;
}

} // namespace

MetaConnection::MetaConnection(const QMetaObject& senderClass, const char* signal,
                               const QMetaObject& receiverClass, const char* method, Made made)
    : signal(signal),
      method(method),
      signalIndex(originalSignal(senderClass, senderClass.indexOfSignal(signature(signal)))),
      methodIndex(receiverClass.indexOfMethod(signature(method))),
      made(made)
{
    Q_ASSERT_X(signalIndex >= 0, "MetaConnection", signal);
    Q_ASSERT_X(methodIndex >= 0, "MetaConnection", method);
}

void MetaConnection::connect(const QObject* sender, const QObject* receiver) const
{
    if (made == BySignature)
        QObject::connect(sender, signal, receiver, method);
    else
        QMetaObject::connect(sender, signalIndex, receiver, methodIndex, Qt::AutoConnection);
}

CS_END_NAMESPACE
