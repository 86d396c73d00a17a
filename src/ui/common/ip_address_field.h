// Four octets side by side for an IPv4 address.
#pragma once

#include "base/ipv4.h"

#include <QWidget>

#include <array>
#include <optional>

class QLineEdit;

// A point, a third digit or the right arrow at its end move on to the next octet; Backspace and the
// left arrow at its beginning move back. Pasting a dotted address into any octet fills all four.
// Numbers above 255 cannot be typed.
class IpAddressField : public QWidget
{
    Q_OBJECT

public:
    // `name` is the accessible name; the octets take it with their place.
    explicit IpAddressField(const QString &name, QWidget *parent = nullptr);

    [[nodiscard]] bool IsComplete() const; // all four octets filled
    [[nodiscard]] bool IsBlank() const; // all four empty
    [[nodiscard]] std::optional<Ipv4> Address() const; // nothing unless complete
    void SetAddress(Ipv4 address);
    void Clear();

signals:
    // A person or a setter changed the text of an octet.
    void Changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool HandleKey(int index, int key, const QString &text);
    bool PasteWhole();
    void ShowMenu(QLineEdit &octet, const QPoint &position);
    void GoTo(int index);

    std::array<QLineEdit *, 4> octets;
};
