#ifndef RVIZ_PLUGIN_CONNECTION_H
#define RVIZ_PLUGIN_CONNECTION_H

#include "cipher_handler.h"

#include <string>
#include <vector>

namespace rviz {
class Config;
}

namespace rviz_plugin {

// One SSH login: address, port, user and the password as cipher text only.
class Connection {
public:
    static CipherHandler cipherHandler;  // shared by all records, initialised by the first panel

    bool operator==(const Connection& other) const;
    bool operator!=(const Connection& other) const { return !(*this == other); }
    bool IsEmpty() const;

    const std::string& GetIp() const { return ip; }
    void SetIp(const std::string& value) { ip = value; }
    const std::string& GetPort() const { return port; }
    void SetPort(const std::string& value) { port = value; }
    const std::string& GetUserName() const { return userName; }
    void SetUserName(const std::string& value) { userName = value; }
    // Encrypts plain (left empty when the cipher is not initialised).
    void SetPassword(const std::string& plain);
    std::vector<unsigned char> GetPassword() const { return password; }
    void SetCipherPassword(const std::vector<unsigned char>& cipher) { password = cipher; }
    // Into the caller's buffer of capacity bytes, which the caller wipes.
    bool GetDecryptedPassword(unsigned char* buffer, std::size_t capacity, int& length) const;

    // "ip", "port", "userName" and "password" (hexadecimal cipher text).
    void Save(rviz::Config config) const;
    // False when a key is missing.
    bool Load(const rviz::Config& config);

private:
    std::string ip;
    std::string port;
    std::string userName;
    std::vector<unsigned char> password;
};

} // namespace rviz_plugin

#endif
