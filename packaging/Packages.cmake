# The Debian packages, made from the same rules as an installation: "cpack" in a built release, or ./package.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_THREADS 0)
set(CPACK_COMPONENTS_ALL common console service)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(CPACK_COMPONENT_${upper}_GROUP ${component})
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME tollbrook-${component})
    set(CPACK_DEBIAN_${upper}_FILE_NAME DEB-DEFAULT)
    set(scripts ${CMAKE_CURRENT_SOURCE_DIR}/debian/${component})
    file(GLOB present ${scripts}/*)
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA ${present})
endforeach()

# The release of Debian that this is built on stands in the version, so that an upgrade of the system brings the
# package that was built for it.
file(STRINGS /etc/os-release release REGEX "^VERSION_ID=")
string(REGEX REPLACE "[^0-9]" "" release "${release}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION}~deb${release}u1)

set(CPACK_PACKAGE_CONTACT "Tollbrook Network <packages@tollbrook.example>")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_COMMON_DEBUGINFO_PACKAGE OFF)
set(CPACK_DEBIAN_COMMON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_COMMON_PACKAGE_SHLIBDEPS OFF)

set(CPACK_COMPONENT_COMMON_DESCRIPTION
"Accounting and control of Internet access: common files
Tollbrook Network counts what each workstation of a local network transfers,
and refuses those that have used up what they may. This package brings what
its console and its service share: the settings of a new installation, the
accounts and groups, and who may speak with whom.")
set(CPACK_COMPONENT_CONSOLE_DESCRIPTION
"Accounting and control of Internet access: console
The console with which an administrator looks after users, groups, limits,
pre-paid credits, blocks and reports, the command line that does the same in
a terminal or a script, a program that writes reports without a window, and
one that makes and looks after the database.")
set(CPACK_COMPONENT_SERVICE_DESCRIPTION
"Accounting and control of Internet access: gateway service
The service of a gateway: it counts the packets that Linux forwards for each
workstation, and has the kernel refuse those of users who are blocked or have
used up what they may.")

# Loaded while running, so that no program tells of them. The library's package is called after its version, which
# stands in the header that the program was built with.
find_path(xlsxwriter_folder xlsxwriter.h REQUIRED)
file(STRINGS ${xlsxwriter_folder}/xlsxwriter.h xlsxwriter_version REGEX "define LXW_SOVERSION")
string(REGEX REPLACE ".*\"(.*)\".*" "\\1" xlsxwriter_version "${xlsxwriter_version}")
set(same "tollbrook-common (= ${CPACK_PACKAGE_VERSION})")
set(CPACK_DEBIAN_COMMON_PACKAGE_DEPENDS "acl, libsqliteodbc, odbcinst, systemd | systemd-standalone-sysusers, \
systemd | systemd-standalone-tmpfiles")
set(CPACK_DEBIAN_COMMON_PACKAGE_RECOMMENDS "dbus, odbc-postgresql, odbc-mariadb")
set(CPACK_DEBIAN_CONSOLE_PACKAGE_DEPENDS "${same}, libxlsxwriter${xlsxwriter_version}, qt6-qpa-plugins")
set(CPACK_DEBIAN_CONSOLE_PACKAGE_RECOMMENDS "fonts-dejavu-core, pkexec, qt6-translations-l10n")
set(CPACK_DEBIAN_CONSOLE_PACKAGE_SUGGESTS "default-mta | mail-transport-agent")
set(CPACK_DEBIAN_SERVICE_PACKAGE_DEPENDS "${same}, procps")
set(CPACK_DEBIAN_SERVICE_PACKAGE_RECOMMENDS "tollbrook-console, nftables, polkitd")

# Once in each package: who may copy it, and what changed; and the compressed form that Debian wants.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/tollbrook-${component})
    install(FILES debian/copyright DESTINATION ${folder} COMPONENT ${component})
    install(FILES debian/changelog DESTINATION ${folder} COMPONENT ${component})
endforeach()
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/Compress.cmake)
include(CPack)
