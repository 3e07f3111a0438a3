#pragma once

#include <QByteArray>

// Bytes that are to be written, added at the end millions of times: an append that fits is a copy and no
// call.
class TLineBuffer {
public:
    explicit TLineBuffer(qsizetype size) : bytes(size, Qt::Uninitialized) {}

    // Room for so many bytes at the end; end() says where they stop.
    char *room(qsizetype size)
    {
        if (bytes.size() - used < size)
            bytes.resize(std::max(used + size, bytes.size() * 2));
        return bytes.data() + used;
    }
    void end(const char *behind) { used = behind - bytes.constData(); }

    TLineBuffer &append(QByteArrayView more)
    {
        char *const out = room(more.size());
        if (!more.isEmpty())
            memcpy(out, more.data(), size_t(more.size()));
        used += more.size();
        return *this;
    }
    TLineBuffer &append(char more)
    {
        *room(1) = more;
        ++used;
        return *this;
    }

    qsizetype size() const { return used; }
    QByteArrayView view() const { return QByteArrayView(bytes).first(used); }
    void clear() { used = 0; } // keeps its room

private:
    QByteArray bytes;
    qsizetype used = 0;
};
