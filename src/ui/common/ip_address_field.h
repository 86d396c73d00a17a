// Four octets side by side for an IPv4 address.
#pragma once

#include "base/ipv4.h"

#include <QWidget>

#include <array>
#include <optional>

class QLineEdit;

// An octet that gets the focus is chosen as a whole, to be typed over. A point or a comma, a third digit
// or the right arrow at its end move on to the next one; Backspace and the left arrow at its beginning
// move back. Pasting a dotted address into any octet fills all four. What is typed stands there as it
// was typed: an octet that is no number up to 255 is framed, and the address is then not complete.
class IpAddressField : public QWidget
{
    Q_OBJECT

public:
    // `name` is the accessible name; the octets take it with their place.
    explicit IpAddressField(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] bool IsComplete() const; // each octet is a number up to 255
    [[nodiscard]] bool IsBlank() const; // all four empty
    [[nodiscard]] std::optional<Ipv4> Address() const; // nothing unless complete
    void SetAddress(Ipv4 address);
    void Clear();

    // The focus goes to the first octet that is no number up to 255, else to the first one.
    void FocusWhatIsMissing();

signals:
    // A person or a setter changed the text of an octet.
    void Changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool HandleKey(int index, int key, const QString &text);
    void TypePoint(int index);
    void Judge(QLineEdit &octet);
    void Typed(int index);
    bool Watch(QLineEdit &octet, QEvent &event);
    bool Paste(const QString &text);
    void ShowMenu(QLineEdit &octet, const QPoint &position);
    void GoTo(int index);

    std::array<QLineEdit *, 4> octets;
    bool steppedOn = false; // a third digit just moved on: the point typed after it has been obeyed
    bool chooseOnRelease = false; // the click that gives an octet the focus chooses it as well
};
