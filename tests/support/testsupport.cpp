#include "testsupport.h"

#include "core/sigdbtablespace.h"

#include <QString>

namespace sigdbtest {

QByteArray bytes(const char *hex)
{
    QByteArray compact;
    for (const char *c = hex; *c; ++c) {
        if (!QChar::isSpace(static_cast<uchar>(*c)))
            compact.append(*c);
    }
    return QByteArray::fromHex(compact);
}

std::string hex(const QByteArray &data)
{
    return data.toHex(' ').toStdString();
}

DefaultSchemaGuard::~DefaultSchemaGuard()
{
    sigdb::SigdbTableSpace::instance().loadDefaultSchema();
}

} // namespace sigdbtest
