#pragma once

#include <QObject>
#include <QPointer>

class Musician;
class QFileDialog;
class QInputDialog;
class QMessageBox;
class QWidget;

/// Answers whatever window stands in the way as somebody would: with its buttons and keys, by
/// chance. It notes for the musician what the answer may change.
class Boxes : public QObject
{
    Q_OBJECT

public:
    explicit Boxes(Musician& musician);

private:
    void Look();
    void Answer(QWidget& window);
    void AnswerMessage(QMessageBox& box);
    void AnswerInput(QInputDialog& box);
    void AnswerPicker(QFileDialog& box);
    void AnswerSaveChoice(QWidget& dialog);
    void AnswerSetlistChoice(QWidget& dialog);
    void UseExportForm(QWidget& form);
    void Permit(const QString& question);
    void PressOneOf(QWidget& window, const QStringList& buttons);

    Musician& m_musician;
    QPointer<QWidget> m_last; ///< the window that was answered last
    int m_times = 0;          ///< how often in a row
};
