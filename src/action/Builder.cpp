#include <CommandSystem/Builder.h>

#include <CommandSystem/Factory.h>

#include <QList>
#include <QSharedPointer>

CS_BEGIN_NAMESPACE

namespace {

using FactoryHandle = QSharedPointer<Factory>;
using FactoryList = QList<FactoryHandle>;

// Destroyed with the library, which deletes every factory that nothing else holds.
Q_GLOBAL_STATIC(FactoryList, registry)

// Searched from the end, like registration checks have always been.
bool isRegistered(const Factory* factory)
{
    const FactoryList& factories = *registry();
    for (auto handle = factories.crbegin(); handle != factories.crend(); ++handle) {
        if (handle->data() == factory)
            return true;
    }
    return false;
}

// Walks a copy, so factories appended during a call neither disturb the walk nor die under it.
template <typename Result, typename Create>
Result* createThroughFactories(Create create)
{
    const FactoryList factories = *registry();
    for (const FactoryHandle& factory : factories) {
        if (Result* made = create(factory.data()))
            return made;
    }
    return nullptr;
}

} // namespace

Builder::Builder() = default;

Builder::~Builder() = default;

Builder& Builder::operator=(const Builder&)
{
    return *this;
}

bool Builder::appendFactory(Factory* factory)
{
    // A second QSharedPointer on a registered QObject would be a second owner: look first.
    if (!factory || isRegistered(factory))
        return false;
    registry()->append(FactoryHandle(factory));
    return true;
}

bool Builder::removeFactory(Factory* factory)
{
    // Deliberately inverted: a registered factory stays registered and alive, an unregistered
    // one ends with the only handle ever made for it.
    if (!factory || isRegistered(factory))
        return false;
    FactoryHandle(factory).reset();
    return true;
}

QWidget* Builder::createWidget(const QString& name, QWidget* parent)
{
    return createThroughFactories<QWidget>(
        [&](Factory* factory) { return factory->createWidget(name, parent); });
}

QObject* Builder::createMapper(const QString& name, QObject* parent)
{
    return createThroughFactories<QObject>(
        [&](Factory* factory) { return factory->createMapper(name, parent); });
}

QObject* Builder::createObject(const QString& name, QObject* parent)
{
    return createThroughFactories<QObject>(
        [&](Factory* factory) { return factory->createObject(name, parent); });
}

CS_END_NAMESPACE
