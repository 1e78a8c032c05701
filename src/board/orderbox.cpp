#include "board/orderbox.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPointer>

namespace {

const QSize boxSize(500, 200);
const QSize buttonSize(80, 28);

/// A message box fits itself to its text whenever it is shown or laid out, so its size is set after each of these.
class FixedSizeBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent *event) override
    {
        const bool handled = QMessageBox::event(event);
        if (minimumSize() != boxSize || maximumSize() != boxSize)
            setFixedSize(boxSize);
        return handled;
    }
};

} // namespace

void showOrderBox(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
                  Qt::TextFormat format)
{
    const QPointer<QMessageBox> box(new FixedSizeBox(icon, title, text, QMessageBox::Ok, parent));
    box->setTextFormat(format);
    // The dialog's style sheet takes the margins and the ground from the button. A host's own sheet may still give a
    // default button white text, made for another ground.
    QAbstractButton *ok = box->button(QMessageBox::Ok);
    ok->setMinimumSize(buttonSize);
    ok->setStyleSheet(QStringLiteral("color: black;"));
    box->exec();
    delete box;
}
