#ifndef TST_TEMPLATETRACKER_H
#define TST_TEMPLATETRACKER_H

#include <CommandSystem/Template.h>

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QList>
#include <QPointer>

// Notices every Template created while it is installed: each constructor sets the dynamic
// property "last_tpl", which sends a property-change event through the application. Lets a
// test find templates it holds no pointer to, for instance to check that they were deleted.
class TemplateTracker : public QObject
{
public:
    TemplateTracker() { QCoreApplication::instance()->installEventFilter(this); }
    ~TemplateTracker() override { QCoreApplication::instance()->removeEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange
            && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "last_tpl"
            && watched->inherits("Template") && !seen.contains(watched)) {
            seen.append(watched);
        }
        return false;
    }

    int created() const { return seen.size(); }

    int alive() const
    {
        int count = 0;
        for (const QPointer<QObject>& object : seen)
            count += object.isNull() ? 0 : 1;
        return count;
    }

private:
    QList<QPointer<QObject>> seen;
};

#endif
