#ifndef RVIZ_PLUGIN_CIPHER_HANDLER_H
#define RVIZ_PLUGIN_CIPHER_HANDLER_H

#include "aes_gcm_code.h"
#include "key_handler.h"

#include <string>
#include <vector>

namespace rviz_plugin {

// Encrypts passwords for the saved connections. Until Initialize has found or made the key material
// under <orsaPath>config/material/, nothing is encrypted or decrypted.
class CipherHandler {
public:
    void Initialize();
    bool IsInitialized() const { return isInitialized; }
    // cipher is left as it was when not initialised or on failure.
    void Encrypt(const std::string& plain, std::vector<unsigned char>& cipher) const;
    // Into out of capacity bytes; the caller wipes it.
    bool Decrypt(const std::vector<unsigned char>& cipher, unsigned char* out, std::size_t capacity,
                 int& length) const;
    // Two upper case hexadecimal digits per byte.
    static std::string BinaryToHex(const std::vector<unsigned char>& data);
    // Two characters at a time through strtoul (a last lone digit is one byte).
    static std::vector<unsigned char> HexToBinary(const std::string& text);

private:
    bool isInitialized = false;
    KeyHandler keyHandler;
    AesGcmCode aesGcmCode;
};

} // namespace rviz_plugin

#endif
