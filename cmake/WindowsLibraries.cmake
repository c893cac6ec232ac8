# What packaging/windows/dependencies builds is linked as archives, and an archive does not tell what it
# needs in turn. ICU keeps its data in a library of its own.
add_compile_definitions(U_STATIC_IMPLEMENTATION LIBXML_STATIC)
find_package(ICU REQUIRED COMPONENTS data)
set_property(TARGET ICU::uc APPEND PROPERTY INTERFACE_LINK_LIBRARIES ICU::data)
set_property(TARGET ICU::i18n APPEND PROPERTY INTERFACE_LINK_LIBRARIES ICU::uc)
set_property(TARGET LibXml2::LibXml2 APPEND PROPERTY INTERFACE_LINK_LIBRARIES ICU::uc ws2_32 bcrypt)
