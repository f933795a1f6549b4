#ifndef RVIZ_PLUGIN_AES_GCM_CODE_H
#define RVIZ_PLUGIN_AES_GCM_CODE_H

#include <cstddef>
#include <string>
#include <vector>

namespace rviz_plugin {

// AES-256 in GCM's counter mode, without the authentication tag: the cipher text is the IV followed by
// as many bytes as the plain text. A damaged cipher text decrypts to wrong text without an error.
class AesGcmCode {
public:
    // Empty on failure (logged).
    std::vector<unsigned char> EncryptString(const std::string& plain, const std::vector<unsigned char>& key,
                                             const std::vector<unsigned char>& iv) const;
    // Decrypts into out, which holds capacity bytes; a cipher text whose plain text would not fit is
    // refused (logged) before anything is written.
    bool DecryptString(const std::vector<unsigned char>& cipher, const std::vector<unsigned char>& key,
                       std::size_t ivSize, unsigned char* out, std::size_t capacity, int& length) const;
};

} // namespace rviz_plugin

#endif
