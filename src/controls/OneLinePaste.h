#pragma once

#include <QObject>

class QLineEdit;
class QMimeData;

/// Keeps line breaks out of what a user pastes or drops into a one-line box: the box would hold
/// them and show blanks. The first line comes that is not empty; the address of a file is no text.
/// Text that is set by code stays whole. Belongs to its box.
class OneLinePaste : public QObject
{
    Q_OBJECT

public:
    explicit OneLinePaste(QLineEdit& box);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool Insert(const QMimeData* source);
    void ShowMenu(const QPoint& onScreen);

    QLineEdit& m_box;
};
