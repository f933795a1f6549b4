#include "connection.h"

#include <rviz/config.h>

namespace rviz_plugin {

CipherHandler Connection::cipherHandler;

bool Connection::operator==(const Connection& other) const
{
    return ip == other.ip && port == other.port && userName == other.userName && password == other.password;
}

bool Connection::IsEmpty() const
{
    return ip.empty() && port.empty() && userName.empty() && password.empty();
}

void Connection::SetPassword(const std::string& plain)
{
    cipherHandler.Encrypt(plain, password);
}

bool Connection::GetDecryptedPassword(unsigned char* buffer, std::size_t capacity, int& length) const
{
    return cipherHandler.Decrypt(password, buffer, capacity, length);
}

void Connection::Save(rviz::Config config) const
{
    config.mapSetValue("ip", QString::fromStdString(ip));
    config.mapSetValue("port", QString::fromStdString(port));
    config.mapSetValue("userName", QString::fromStdString(userName));
    config.mapSetValue("password", QString::fromStdString(CipherHandler::BinaryToHex(password)));
}

bool Connection::Load(const rviz::Config& config)
{
    QString values[4];
    const char* keys[] = {"ip", "port", "userName", "password"};
    for (int index = 0; index < 4; ++index) {
        if (!config.mapGetString(keys[index], &values[index])) {
            return false;
        }
    }
    ip = values[0].toStdString();
    port = values[1].toStdString();
    userName = values[2].toStdString();
    password = CipherHandler::HexToBinary(values[3].toStdString());
    return true;
}

} // namespace rviz_plugin
