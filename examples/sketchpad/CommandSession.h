#ifndef SKETCHPAD_COMMANDSESSION_H
#define SKETCHPAD_COMMANDSESSION_H

#include <CommandSystem/Parameter.h>

#include <QList>
#include <QObject>
#include <QPair>
#include <QPointF>
#include <QRectF>
#include <QStringList>

#include <optional>

namespace Talvir { namespace Vexa { namespace Cs { class Template; } } }
class DrawingView;

// One run of a template command: walks the template's parameters in order, shows each prompt,
// and takes the answers typed on the command line or clicked in the drawing.
//
// Walking rules, read from the parameter properties: "next" jumps to the parameter of that luid
// after an answer (a parameter whose "next" is its own luid repeats until Enter); "selected"
// asks a parameter only when the last option chosen has that key; "list" lets an entity
// parameter collect several entities until Enter; "options" lists "key:Label" pairs separated by
// ";"; "dim" holds the lowest and highest allowed number; "checker" asks for a usable value
// (positive, not empty, not the same point again). Null parameters only show their prompt and
// form parameters show the form named by their "callback".
class CommandSession : public QObject
{
    Q_OBJECT

public:
    using Parameter = Talvir::Vexa::Cs::Parameter;
    using Template = Talvir::Vexa::Cs::Template;

    struct Answer {
        int luid = 0;
        QPointF point;
        double number = 0.0;
        QString text;
        QList<int> entities;
        QRectF window;
    };

    CommandSession(Template* commandTemplate, DrawingView* view, QObject* parent = nullptr);

    QString name() const;
    Template* commandTemplate() const;
    const Parameter* current() const;
    bool isFinished() const;
    bool isCompleted() const;

    void start(const QStringList& answers);
    void feedText(const QString& text);
    void feedPoint(const QPointF& point);
    void cancel();

    bool has(int luid) const;
    QPointF point(int luid) const;
    QList<QPointF> points(int luid) const;
    QList<QPointF> allPoints() const;
    double number(int luid) const;
    QString text(int luid) const;
    QList<int> entities(int luid) const;
    QRectF window(int luid) const;
    QString lastOption() const;
    std::optional<QPointF> lastPoint() const;
    QList<int> pendingSelection() const;

signals:
    void promptChanged(const QString& prompt, const QString& format);
    void echoed(const QString& text);
    void rejected(const QString& reason);
    void triggered(const Parameter* parameter);
    void undoRequested(const Parameter* parameter);
    void formRequested(const Parameter* parameter);
    void finished(bool completed);

private:
    using Option = QPair<QString, QString>;

    void enter(int index);
    void advance();
    void finish(bool completed);
    void accept(const Answer& answer, const QString& echo);
    bool takeOption(const QString& text);
    bool takeEmpty();
    void takeValue(const QString& text);
    void takeEntities(const QList<int>& ids, const QString& echo);
    void takeCorner(const QPointF& point, const QString& echo);
    void takePoint(const QPointF& point, const QString& echo);
    bool parsePoint(const QString& text, QPointF& point) const;
    bool inRange(double value) const;
    int indexOf(int luid) const;
    QList<Option> options() const;
    QString expected() const;
    void prompt();

    Template* m_template;
    DrawingView* m_view;
    int m_index = -1;
    bool m_finished = false;
    bool m_completed = false;
    QList<Answer> m_answers;
    QString m_lastOption;
    QList<int> m_selection;
    std::optional<QPointF> m_firstCorner;
};

#endif
