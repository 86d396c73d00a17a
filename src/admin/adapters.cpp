#include "admin/adapters.h"

#include "config/config_store.h"

#include <QNetworkInterface>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDevicePathLength = 15; // \Device\Packet_

// Part of what the settings keep, and the service looks for: the same in every language.
QString KindOf(QNetworkInterface::InterfaceType type)
{
    switch (type) {
    case QNetworkInterface::Ethernet:
        return u"Ethernet adapter"_s;
    case QNetworkInterface::Wifi:
        return u"Wireless adapter"_s;
    case QNetworkInterface::Ppp:
    case QNetworkInterface::Slip:
        return u"Point-to-point adapter"_s;
    case QNetworkInterface::Virtual:
        return u"Virtual adapter"_s;
    default:
        return u"Network adapter"_s;
    }
}

Adapter AdapterOf(const QNetworkInterface &interface)
{
    Adapter adapter;
    adapter.name = interface.name();
    adapter.description = KindOf(interface.type()) + u' ' + interface.humanReadableName();
    adapter.hidden = interface.flags().testFlag(QNetworkInterface::IsLoopBack);
    for (const QNetworkAddressEntry &entry : interface.addressEntries()) {
        if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol) {
            adapter.address = entry.ip().toIPv4Address();
            adapter.prefixLength = static_cast<quint32>(std::max(0, entry.prefixLength()));
            break;
        }
    }
    return adapter;
}

} // namespace

QList<Adapter> SystemAdapters()
{
    QList<Adapter> adapters;
    for (const QNetworkInterface &interface : QNetworkInterface::allInterfaces()) {
        adapters.append(AdapterOf(interface));
    }
    return adapters;
}

QList<Adapter> Selectable(const QList<Adapter> &adapters)
{
    QList<Adapter> selectable = adapters;
    selectable.removeIf([](const Adapter &adapter) { return adapter.hidden; });
    return selectable;
}

const Adapter *FindAdapter(const QList<Adapter> &adapters, const QString &description)
{
    const auto found = std::ranges::find_if(adapters, [&description](const Adapter &adapter) {
        return !adapter.hidden && adapter.description == description;
    });
    return found == adapters.cend() ? nullptr : &*found;
}

tl::expected<std::optional<QString>, SettingsFailure> CaptureBinding(const ConfigStore &store)
{
    return store.ReadKey(ConfigKeyId::CaptureDriver).map([](const KeyReader &driver) {
        const auto text = driver.ReadText(values::kCaptureExport);
        return text ? std::optional(text->mid(kDevicePathLength)) : std::nullopt;
    });
}

tl::expected<std::optional<QString>, SettingsFailure> BoundAdapter(const ConfigStore &store)
{
    const auto binding = CaptureBinding(store);
    if (!binding || !*binding) {
        return binding;
    }
    return store.ReadKey(ConfigKeyId::AdapterBind).map([](const KeyReader &bound) {
        return bound.ReadText(values::kBoundNic);
    });
}

SettingsResult BindAdapter(const ConfigStore &store, const Adapter &adapter)
{
    return store.WriteText(values::kBoundNic, adapter.description);
}
