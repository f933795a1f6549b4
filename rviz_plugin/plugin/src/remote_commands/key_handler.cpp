#include "key_handler.h"

#include "foundation/bounded_memory.h"
#include "remote_log.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace rviz_plugin {

namespace {
// The program's share of the key: five bytes computed when needed, zero-extended.
void BuiltInComponent(std::vector<unsigned char>& component)
{
    component.assign(KeyHandler::componentSize, 0);
    unsigned value = 0x4bU;
    for (std::size_t index = 0; index < 5; ++index) {
        value = (value * 181U + 97U) & 0xffU;
        component[index] = static_cast<unsigned char>(value ^ (0x3cU + index * 17U));
    }
}

void Wipe(std::vector<unsigned char>& data)
{
    memset_s(data.data(), data.size(), 0, data.size());
}
} // namespace

void KeyHandler::InitPath(const std::string& folder)
{
    dkeyPath = folder + "dkey";
    skeyPath = folder + "skey";
    saltsPath = folder + "salts";
}

bool KeyHandler::Save(const std::string& path, const std::vector<unsigned char>& data)
{
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) {
        RemoteError("Failed to open " + path);
        return false;
    }
    ::fchmod(file, S_IRUSR | S_IWUSR);  // also when the file was there with wider rights
    const bool written = ::write(file, data.data(), data.size()) == static_cast<ssize_t>(data.size());
    return ::close(file) == 0 && written;
}

bool KeyHandler::Load(const std::string& path, std::vector<unsigned char>& data)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file.is_open()) {
        RemoteError("Failed to open " + path);
        return false;
    }
    const std::streamsize size = file.tellg();
    if (size < 0) {
        return false;
    }
    data.resize(static_cast<std::size_t>(size));
    file.seekg(0);
    return static_cast<bool>(file.read(reinterpret_cast<char*>(data.data()), size));
}

bool KeyHandler::GenComponent() const
{
    for (const std::string* path : {&dkeyPath, &skeyPath, &saltsPath}) {
        std::vector<unsigned char> component(componentSize);
        if (RAND_bytes(component.data(), componentSize) != 1 || !Save(*path, component)) {
            RemoteError("Failed to save the component.");
            return false;
        }
    }
    return true;
}

bool KeyHandler::GenRootKey(std::vector<unsigned char>& key) const
{
    std::vector<unsigned char> password;
    BuiltInComponent(password);
    std::vector<unsigned char> dkey;
    std::vector<unsigned char> skey;
    std::vector<unsigned char> salts;
    const bool loaded = Load(dkeyPath, dkey) && Load(skeyPath, skey) && Load(saltsPath, salts) &&
                        dkey.size() == componentSize && skey.size() == componentSize && salts.size() == componentSize;
    bool derived = false;
    if (!loaded) {
        RemoteError("Failed to load the component.");
    } else {
        for (std::size_t index = 0; index < componentSize; ++index) {
            password[index] ^= dkey[index] ^ skey[index];
        }
        key.assign(keySize, 0);
        derived = PKCS5_PBKDF2_HMAC(reinterpret_cast<const char*>(password.data()), componentSize, salts.data(),
                                    componentSize, iterationCount, EVP_sha256(), keySize, key.data()) != 0;
        if (!derived) {
            RemoteError("An error occurs when the PBKDF2 algorithm is used to generate the root key.");
        }
    }
    for (std::vector<unsigned char>* secret : {&password, &dkey, &skey, &salts}) {
        Wipe(*secret);
    }
    return derived;
}

bool KeyHandler::GenIv(std::vector<unsigned char>& iv) const
{
    iv.assign(ivSize, 0);
    return RAND_bytes(iv.data(), ivSize) == 1;
}

} // namespace rviz_plugin
