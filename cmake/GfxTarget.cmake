# What every target of this project is compiled with. Applied target by target, so that a project that adds
# this one as a subdirectory keeps its own settings.
function(gfx_target_defaults a_target)
    target_compile_features(${a_target} PUBLIC cxx_std_20)
    set_target_properties(${a_target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${a_target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
    # A fused product rounds once where two operations round twice; coordinates must not depend on the machine.
    target_compile_options(${a_target} PRIVATE -ffp-contract=off)
    if(GFX_WERROR)
        target_compile_options(${a_target} PRIVATE -Werror)
    endif()
    if(GFX_SANITISE)
        target_compile_options(${a_target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
        # Through instrumented code GCC no longer sees what is set, and warns of the standard library's own.
        target_compile_options(${a_target} PRIVATE -Wno-maybe-uninitialized)
        target_link_options(${a_target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(GFX_FUZZ)
        # Conversions of numbers that are out of range are undefined too, but belong to no group.
        target_compile_options(${a_target} PRIVATE
            -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=all
            -fno-omit-frame-pointer)
        target_link_options(${a_target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined)
    endif()
endfunction()
