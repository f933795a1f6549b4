#ifndef RVIZ_PLUGIN_KEY_HANDLER_H
#define RVIZ_PLUGIN_KEY_HANDLER_H

#include <string>
#include <vector>

namespace rviz_plugin {

// The root key of the password cipher, derived at each use and kept nowhere: PBKDF2-HMAC-SHA256 (10000
// rounds) over the XOR of a component built into the program and two random files, salted by a third.
// The files (dkey, skey, salts; 32 bytes each, mode 0600) live in the material folder (mode 0700).
class KeyHandler {
public:
    static constexpr int keySize = 32;
    static constexpr int ivSize = 12;
    static constexpr int iterationCount = 10000;
    static constexpr int componentSize = 32;

    void InitPath(const std::string& folder);
    // Three new random files; false (logged) when one cannot be written.
    bool GenComponent() const;
    bool GenRootKey(std::vector<unsigned char>& key) const;
    bool GenIv(std::vector<unsigned char>& iv) const;
    int GetIvSize() const { return ivSize; }
    static bool Save(const std::string& path, const std::vector<unsigned char>& data);
    static bool Load(const std::string& path, std::vector<unsigned char>& data);

private:
    std::string dkeyPath;
    std::string skeyPath;
    std::string saltsPath;
};

} // namespace rviz_plugin

#endif
