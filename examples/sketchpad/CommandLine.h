#ifndef SKETCHPAD_COMMANDLINE_H
#define SKETCHPAD_COMMANDLINE_H

#include <QWidget>

namespace Talvir { namespace Vexa { namespace Cs { class CommandLineModel; } } }
class QLabel;
class QLineEdit;
class QPlainTextEdit;

// The command line: a history of prompts, answers and messages above an input field whose
// label shows the current prompt. The field is a view of the library's command-line model:
// what is typed goes to the model, and Tab, Up, Down, Return and Esc are the model's keys.
class CommandLine : public QWidget
{
    Q_OBJECT

public:
    enum Role { Prompt, Input, Message, Error };

    explicit CommandLine(Talvir::Vexa::Cs::CommandLineModel* model, QWidget* parent = nullptr);

    void appendHistory(const QString& text, Role role = Message);
    void setPrompt(const QString& prompt, const QString& format);
    QString prompt() const;
    // Types a line as a user would and presses Enter.
    void type(const QString& line);

signals:
    void historyAppended(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showText(const QString& text);

    Talvir::Vexa::Cs::CommandLineModel* m_model;
    QPlainTextEdit* m_history;
    QLabel* m_prompt;
    QLineEdit* m_input;
};

#endif
