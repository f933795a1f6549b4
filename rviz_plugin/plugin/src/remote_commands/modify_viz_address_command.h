#ifndef RVIZ_PLUGIN_MODIFY_VIZ_ADDRESS_COMMAND_H
#define RVIZ_PLUGIN_MODIFY_VIZ_ADDRESS_COMMAND_H

#include "builtin_command.h"

namespace rviz_plugin {

// The compiled-in "setting viz_address.conf": adds this visualiser's listening address and port to the
// file the car's forwarding applications read, unless it is there, and shows the file.
class ModifyVizAddressCommand : public BuiltinCommand {
    Q_OBJECT
public:
    ModifyVizAddressCommand();
    // This computer's first private IPv4 address (else 192.168.1.100) and "7000", overridden by "ip" and
    // "port" of <orsaPath>/config/settings.json where they are strings.
    static void GetOrsaListenIpAndPort(QString& ip, QString& port);
};

} // namespace rviz_plugin

#endif
