#ifndef SKETCHPAD_COMMANDLINE_H
#define SKETCHPAD_COMMANDLINE_H

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;

// The command line: a history of prompts, answers and messages above an input field whose
// label shows the current prompt. Enter hands the typed line on; Esc asks for a cancel.
class CommandLine : public QWidget
{
    Q_OBJECT

public:
    enum Role { Prompt, Input, Message, Error };

    explicit CommandLine(QWidget* parent = nullptr);

    void appendHistory(const QString& text, Role role = Message);
    void setPrompt(const QString& prompt, const QString& format);
    QString prompt() const;
    // Types a line as a user would and presses Enter.
    void type(const QString& line);

signals:
    void lineEntered(const QString& line);
    void cancelRequested();
    void historyAppended(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void onReturnPressed();

private:
    QPlainTextEdit* m_history;
    QLabel* m_prompt;
    QLineEdit* m_input;
};

#endif
