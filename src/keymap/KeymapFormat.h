#ifndef COMMANDSYSTEM_KEYMAPFORMAT_H
#define COMMANDSYSTEM_KEYMAPFORMAT_H

#include <CommandSystem/Global.h>

#include <QLatin1String>
#include <QXmlStreamAttribute>

CS_BEGIN_NAMESPACE

// The names of the keymap file format, shared by its reader and its writer.
namespace KeymapFormat {

inline QLatin1String root() { return QLatin1String("keymap"); }
inline QLatin1String versionAttribute() { return QLatin1String("version"); }
inline QLatin1String version() { return QLatin1String("1"); }
inline QLatin1String shortcutElement() { return QLatin1String("shortcut"); }
inline QLatin1String noneElement() { return QLatin1String("none"); }
inline QLatin1String actionAttribute() { return QLatin1String("action"); }

// xsi:noNamespaceSchemaLocation and friends let editors find the schema; they are no content.
inline bool isSchemaInstance(const QXmlStreamAttribute& attribute)
{
    return attribute.namespaceUri() == QLatin1String("http://www.w3.org/2001/XMLSchema-instance");
}

} // namespace KeymapFormat

CS_END_NAMESPACE

#endif
