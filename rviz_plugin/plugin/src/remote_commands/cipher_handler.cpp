#include "cipher_handler.h"

#include "foundation/bounded_memory.h"
#include "foundation/path_utils.h"
#include "remote_log.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace rviz_plugin {

namespace {
constexpr mode_t privateFolder = S_IRWXU;  // 0700
} // namespace

void CipherHandler::Initialize()
{
    std::string root;
    if (!Orsa::GetOrsaPath(root)) {
        RemoteError("Failed to get orsa path.");
        return;
    }
    const std::string configFolder = Orsa::JoinPath(root, "config/");
    const std::string materialFolder = Orsa::JoinPath(root, "config/material/");
    keyHandler.InitPath(materialFolder);
    if (access(materialFolder.c_str(), W_OK) == 0) {
        isInitialized = true;
        return;
    }
    if (access(configFolder.c_str(), W_OK) != 0 && mkdir(configFolder.c_str(), privateFolder) != 0) {
        RemoteError("Create componentConfPath( " + configFolder + " ) failed.");
        return;
    }
    if (mkdir(materialFolder.c_str(), privateFolder) != 0) {
        RemoteError("Create componentPath( " + materialFolder + " ) failed, will not write component to file.");
        return;
    }
    if (keyHandler.GenComponent()) {
        isInitialized = true;
    } else {
        RemoteError("Failed to generate the component of root key.");
    }
}

void CipherHandler::Encrypt(const std::string& plain, std::vector<unsigned char>& cipher) const
{
    if (!isInitialized) {
        return;
    }
    std::vector<unsigned char> key;
    if (!keyHandler.GenRootKey(key)) {
        RemoteError("Encryption error: Failed to generate the root key.");
        return;
    }
    std::vector<unsigned char> iv;
    if (keyHandler.GenIv(iv)) {
        std::vector<unsigned char> result = aesGcmCode.EncryptString(plain, key, iv);
        if (!result.empty()) {
            cipher = std::move(result);
        }
    }
    memset_s(key.data(), key.size(), 0, key.size());
}

bool CipherHandler::Decrypt(const std::vector<unsigned char>& cipher, unsigned char* out, std::size_t capacity,
                            int& length) const
{
    if (!isInitialized) {
        return false;
    }
    std::vector<unsigned char> key;
    if (!keyHandler.GenRootKey(key)) {
        RemoteError("Decryption error: Failed to generate the root key.");
        return false;
    }
    const bool decrypted =
        aesGcmCode.DecryptString(cipher, key, static_cast<std::size_t>(keyHandler.GetIvSize()), out, capacity, length);
    memset_s(key.data(), key.size(), 0, key.size());
    return decrypted;
}

std::string CipherHandler::BinaryToHex(const std::vector<unsigned char>& data)
{
    std::string text;
    text.reserve(data.size() * 2);
    char pair[3];
    for (unsigned char byte : data) {
        std::snprintf(pair, sizeof(pair), "%02X", byte);
        text += pair;
    }
    return text;
}

std::vector<unsigned char> CipherHandler::HexToBinary(const std::string& text)
{
    std::vector<unsigned char> data;
    data.reserve((text.size() + 1) / 2);
    for (std::size_t index = 0; index < text.size(); index += 2) {
        const std::string pair = text.substr(index, 2);
        data.push_back(static_cast<unsigned char>(std::strtoul(pair.c_str(), nullptr, 16)));
    }
    return data;
}

} // namespace rviz_plugin
