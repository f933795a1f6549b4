#include "modify_viz_address_command.h"

#include "foundation/config_file_tool.h"
#include "foundation/file_hander.h"
#include "foundation/path_utils.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>

namespace rviz_plugin {

namespace {
const char* const addressTemplate =
    "export orsa_listen_address=\"{}\"; if [ -s /opt/cfg/conf_run/viz/viz_address.conf ] ; then grep -q "
    "\"$orsa_listen_address\" /opt/cfg/conf_run/viz/viz_address.conf || sed -i '$a'\"$orsa_listen_address\"'' "
    "/opt/cfg/conf_run/viz/viz_address.conf ; else echo \"$orsa_listen_address\" > "
    "/opt/cfg/conf_run/viz/viz_address.conf ; fi ; cat /opt/cfg/conf_run/viz/viz_address.conf";

bool IsPrivate(uint32_t address)
{
    return (address >> 24) == 10 || (address >> 20) == 0xAC1 || (address >> 16) == 0xC0A8;
}

QString FirstPrivateAddress()
{
    ifaddrs* interfaces = nullptr;
    QString found = "192.168.1.100";
    if (getifaddrs(&interfaces) != 0) {
        return found;
    }
    for (const ifaddrs* entry = interfaces; entry != nullptr; entry = entry->ifa_next) {
        if (entry->ifa_addr != nullptr && entry->ifa_addr->sa_family == AF_INET) {
            const auto* address = reinterpret_cast<const sockaddr_in*>(entry->ifa_addr);
            if (IsPrivate(ntohl(address->sin_addr.s_addr))) {
                char text[INET_ADDRSTRLEN] = {};
                inet_ntop(AF_INET, &address->sin_addr, text, sizeof(text));
                found = text;
                break;
            }
        }
    }
    freeifaddrs(interfaces);
    return found;
}
} // namespace

ModifyVizAddressCommand::ModifyVizAddressCommand()
{
    SetName("setting viz_address.conf");
    SetTemplate(addressTemplate);
    QString ip;
    QString port;
    GetOrsaListenIpAndPort(ip, port);
    SetEditableCommand(QString("%1 %2").arg(ip, port));
    SetButtonFlag(HasExecute | HasView | HasEdit);
    SetCommandDescription(
        "This command is used to add the IP address and port listened by the Orsa to the viz_address.conf file. If "
        "an IP and port already exists in the viz_address.conf file, it will not be added to the file. The "
        "forwarding applications obtain this IP address to connect to the Orsa server.");
}

void ModifyVizAddressCommand::GetOrsaListenIpAndPort(QString& ip, QString& port)
{
    ip = FirstPrivateAddress();
    port = "7000";
    std::string root;
    if (!Orsa::GetOrsaPath(root)) {
        return;
    }
    const std::string path = Orsa::JoinPath(root, "config/settings.json");
    rapidjson::Document document;
    if (!Orsa::FileHander::IsFileExist(path) || Orsa::ConfigFileTool::ReadJsonFile(path, document) ||
        !document.IsObject()) {
        return;
    }
    if (document.HasMember("ip") && document["ip"].IsString()) {
        ip = document["ip"].GetString();
    }
    if (document.HasMember("port") && document["port"].IsString()) {
        port = document["port"].GetString();
    }
}

} // namespace rviz_plugin
