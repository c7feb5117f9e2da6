cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
    set(output "${out}${err}" PARENT_SCOPE)
    set(code "${code}" PARENT_SCOPE)
endfunction()

function(must_succeed)
    run(${ARGN})
    if(NOT code EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

function(expect want_code want_text)
    if(NOT code EQUAL want_code OR NOT output MATCHES "${want_text}")
        message(FATAL_ERROR "expected ${want_code} and '${want_text}', got ${code}:\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH}/runtime)
must_succeed(${CMAKE_COMMAND} --install ${BUILD} --prefix ${SCRATCH}/prefix)
must_succeed(${CMAKE_COMMAND} -S ${HOST} -B ${SCRATCH}/build -G Ninja
    -D CMAKE_PREFIX_PATH=${SCRATCH}/prefix -D CMAKE_CXX_COMPILER=${COMPILER}
    "-D CMAKE_CXX_FLAGS=${FLAGS}")
must_succeed(${CMAKE_COMMAND} --build ${SCRATCH}/build)

set(ENV{XDG_RUNTIME_DIR} ${SCRATCH}/runtime)
set(ENV{QT_QPA_PLATFORM} offscreen)
run(${SCRATCH}/build/host --accept)
expect(0 "\"New Pattern\": 1 position events, modified")

unset(ENV{QT_QPA_PLATFORM})
unset(ENV{DISPLAY})
unset(ENV{WAYLAND_DISPLAY})
run(${SCRATCH}/build/host --accept)
expect(1 "the editor could not be opened")
