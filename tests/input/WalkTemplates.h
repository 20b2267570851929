#ifndef WALKTEMPLATES_H
#define WALKTEMPLATES_H

#include <CommandSystem/InputPicker.h>
#include <CommandSystem/Template.h>
#include <CommandSystem/TemplateTools.h>

#include <QHash>
#include <QLineF>
#include <QMap>
#include <QString>

#include <memory>
#include <vector>

// The small commands of data/walk.tcmd, each showing some walking rules, by name.
class WalkTemplates
{
public:
    WalkTemplates()
    {
        QList<Talvir::Vexa::Cs::Template*> loaded;
        Talvir::Vexa::Cs::TemplateTools tools;
        m_loaded = tools.loadTemplate(QStringLiteral(CS_TEST_DATA_DIR "/walk.tcmd"), loaded);
        for (Talvir::Vexa::Cs::Template* commandTemplate : loaded) {
            m_templates.emplace_back(commandTemplate);
            m_byName.insert(commandTemplate->objectName(), commandTemplate);
        }
    }

    bool isLoaded() const { return m_loaded && m_byName.size() >= 10; }
    const Talvir::Vexa::Cs::Template* get(const QString& name) const { return m_byName.value(name); }
    QStringList names() const { return m_byName.keys(); }

private:
    bool m_loaded = false;
    std::vector<std::unique_ptr<Talvir::Vexa::Cs::Template>> m_templates;
    QHash<QString, Talvir::Vexa::Cs::Template*> m_byName;
};

// A drawing of a few entities for picks: an entity is found within 0.5 of its position; pins
// catch the nearest whole-number point; "a" selects all entities, "l" the last one.
class TestPicker : public Talvir::Vexa::Cs::InputPicker
{
public:
    QMap<int, QPointF> entities{{1, QPointF(0, 0)}, {2, QPointF(10, 0)}, {3, QPointF(10, 10)}};

    int entityAt(const QPointF& point) override
    {
        for (auto it = entities.constBegin(); it != entities.constEnd(); ++it) {
            if (QLineF(it.value(), point).length() <= 0.5)
                return it.key();
        }
        return 0;
    }

    QPointF pinnedPoint(const QPointF& point) override
    {
        return QPointF(qRound(point.x()), qRound(point.y()));
    }

    QList<int> optionEntities(const QString& key) override
    {
        if (key == QLatin1String("a"))
            return entities.keys();
        if (key == QLatin1String("l") && !entities.isEmpty())
            return {entities.lastKey()};
        return {};
    }
};

#endif
