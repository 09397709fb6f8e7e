# A component DLL of the suite: lv_com_class(...) states each of its classes once, and lv_component_dll(...) makes the
# DLL with its registration scripts, type library and version as resources, and its side-by-side manifest.
#
# lv_com_class(<name> CLSID <{..}> PROGID <Vendor.Class> TITLE <text> TYPELIB <{..}> [SCRIPT <id>]
#              [APPID] [THREADING <model>] [PROGRAMMABLE] [CONTROL <toolbox bitmap id>])
# SCRIPT is the id of its REGISTRY resource; APPID writes %APPID% beside the class.
#
# lv_component_dll(<name> ASSEMBLY <manifest name> DESCRIPTION <text> TYPELIB <file> TYPELIB_ID <{..}>
#                  SOURCES <...> LIBS <...> [RESOURCES <lines of the resource script>] [RESOURCE_FILES <...>])
# exports what <name>.def beside the caller's CMakeLists.txt says and nothing else.
#
# lv_use_components(<program>) puts a program into the folder of the component DLLs, with a manifest by which it finds
# them there without any registration. A project that includes this tree may call it, too.
include_guard()
set(LV_COMPONENT_FOLDER ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} CACHE INTERNAL "folder of the component DLLs")
set(LV_ASSEMBLY_VERSION ${PROJECT_VERSION} CACHE INTERNAL "version of the assemblies")
set(LV_CLASS_TEMPLATE ${CMAKE_CURRENT_LIST_DIR}/Class.rgs.in)

function(lv_com_class name)
  cmake_parse_arguments(class "PROGRAMMABLE;APPID" "CLSID;PROGID;TITLE;TYPELIB;SCRIPT;THREADING;CONTROL" "" ${ARGN})
  if(NOT class_THREADING)
    set(class_THREADING Apartment)
  endif()
  foreach(field clsid progid title typelib threading)
    string(TOUPPER ${field} argument)
    set(class_${field} "${class_${argument}}")
  endforeach()

  set(class_appid_line "")
  if(class_APPID)
    set(class_appid_line "            val AppID = s '%APPID%'\n")
  endif()
  set(class_extra_keys "")
  set(manifest_extra "")
  if(class_PROGRAMMABLE OR class_CONTROL)
    string(APPEND class_extra_keys "            ForceRemove Programmable\n")
  endif()
  if(class_CONTROL)
    string(APPEND class_extra_keys "            ForceRemove Control = s 'Lumevor Control'
            ForceRemove ToolboxBitmap32 = s '%MODULE%, ${class_CONTROL}'
            MiscStatus = s '0'
            {
                '1' = s '%OLEMISC%'
            }
            Version = s '1.0'
")
    # The words for 131473, which is what %OLEMISC% stands for.
    set(manifest_extra "\n                  miscStatusContent=\"recomposeonresize,cantlinkinside,insideout,activatewhenvisible,setclientsitefirst\"")
  endif()

  if(class_SCRIPT)
    set(script ${CMAKE_CURRENT_BINARY_DIR}/generated/${name}.rgs)
    configure_file(${LV_CLASS_TEMPLATE} ${script} @ONLY NEWLINE_STYLE CRLF)
    set(LV_REGISTRY_SCRIPTS "${LV_REGISTRY_SCRIPTS}${class_SCRIPT} REGISTRY \"${name}.rgs\"\n" PARENT_SCOPE)
    list(APPEND LV_REGISTRY_SCRIPT_FILES ${script})
    set(LV_REGISTRY_SCRIPT_FILES ${LV_REGISTRY_SCRIPT_FILES} PARENT_SCOPE)
  endif()
  set(LV_MANIFEST_CLASSES "${LV_MANIFEST_CLASSES}        <comClass description=\"${class_TITLE}\" clsid=\"${class_CLSID}\" threadingModel=\"${class_THREADING}\"
                  tlbid=\"${class_TYPELIB}\" progid=\"${class_PROGID}.1\"${manifest_extra}>
            <progid>${class_PROGID}</progid>
        </comClass>
" PARENT_SCOPE)
endfunction()

function(lv_component_dll name)
  cmake_parse_arguments(version "" "ASSEMBLY;DESCRIPTION;TYPELIB;TYPELIB_ID;RESOURCES" "SOURCES;LIBS;RESOURCE_FILES" ${ARGN})
  set(generated ${CMAKE_CURRENT_BINARY_DIR}/generated)

  set(version_NAME ${name})
  string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
  get_filename_component(library ${version_TYPELIB} NAME)
  string(PREPEND version_RESOURCES "1 TYPELIB \"${library}\"\n${LV_REGISTRY_SCRIPTS}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/Version.rc.in ${generated}/${name}.rc @ONLY)
  get_filename_component(library_folder ${version_TYPELIB} DIRECTORY)
  set_source_files_properties(${generated}/${name}.rc PROPERTIES
    INCLUDE_DIRECTORIES "${generated};${library_folder}"
    OBJECT_DEPENDS "${version_TYPELIB};${LV_REGISTRY_SCRIPT_FILES};${version_RESOURCE_FILES}")

  add_library(${name} SHARED ${version_SOURCES} ${generated}/${name}.rc ${name}.def)
  set_target_properties(${name} PROPERTIES PREFIX "")
  target_link_libraries(${name} PRIVATE ${version_LIBS})
  target_link_options(${name} PRIVATE -Wl,--exclude-all-symbols)

  install(TARGETS ${name} RUNTIME DESTINATION bin)
  install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${version_ASSEMBLY}.manifest DESTINATION bin)
  file(CONFIGURE OUTPUT ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${version_ASSEMBLY}.manifest @ONLY CONTENT
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
    <assemblyIdentity type=\"win32\" name=\"@version_ASSEMBLY@\" version=\"@PROJECT_VERSION@\" processorArchitecture=\"amd64\"/>
    <file name=\"@name@.dll\">
@LV_MANIFEST_CLASSES@        <typelib tlbid=\"@version_TYPELIB_ID@\" version=\"1.0\" helpdir=\"\" resourceid=\"1\" flags=\"HASDISKIMAGE\"/>
    </file>
</assembly>
")
endfunction()

function(lv_use_components program)
  set(dependencies "")
  foreach(assembly PropertyCollection Stream Settings)
    string(APPEND dependencies "    <dependency>
        <dependentAssembly>
            <assemblyIdentity type=\"win32\" name=\"Lumevor.${assembly}\" version=\"${LV_ASSEMBLY_VERSION}\" processorArchitecture=\"amd64\"/>
        </dependentAssembly>
    </dependency>
")
  endforeach()
  file(CONFIGURE OUTPUT ${LV_COMPONENT_FOLDER}/${program}.exe.manifest @ONLY CONTENT
"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
@dependencies@</assembly>
")
  set_target_properties(${program} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${LV_COMPONENT_FOLDER})
  add_dependencies(${program} LV_prpPropCollection LV_strStream LV_setSettings)
endfunction()
