// Bytes on their way into a file, in large pieces; the first failure of the device stays.
#pragma once

#include <QIODevice>
#include <QString>

// False when the device fails. One that took a part says only at the next write why it took no more.
inline bool WriteWhole(QIODevice &device, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 now = device.write(bytes.constData() + done, bytes.size() - done);
        if (now <= 0) {
            return false;
        }
        done += now;
    }
    return true;
}

class PieceWriter
{
public:
    explicit PieceWriter(QIODevice &toDevice) : device(toDevice)
    {
        bytes.reserve(kPiece + kPiece / 4);
    }

    void Write(QStringView text)
    {
        bytes.append(text.toUtf8());
        if (bytes.size() >= kPiece) {
            Flush();
        }
    }

    void Write(const QString &text) { Write(QStringView(text)); }

    // True when everything so far has reached the device.
    bool Flush()
    {
        good = good && WriteWhole(device, bytes);
        bytes.resize(0);
        return good;
    }

    [[nodiscard]] bool IsGood() const { return good; }

private:
    static constexpr qsizetype kPiece = 1 << 18;

    QIODevice &device;
    QByteArray bytes;
    bool good = true;
};
