-- SPDX-License-Identifier: GPL-3.0-or-later
-- The part of io, package and what loads scripts that calls functions of the script or of Lua's own
-- libraries. Files.cpp runs it before the script.
local loadfile, readable, io, package, loadstring = ...
local open, input, output = io.open, io.input, io.output
local error, type, tostring = error, type, tostring
local gsub, gmatch, concat = string.gsub, string.gmatch, table.concat

local function chosen(choose, mode)
    return function(file)
        local kind = type(file)
        if kind ~= "string" and kind ~= "number" then return choose(file) end
        local opened, reason = open(file, mode)
        if not opened then error(reason, 2) end
        return choose(opened)
    end
end
io.input, io.output = chosen(input, "r"), chosen(output, "w")

local lines = io.lines
function io.lines(name)
    if name == nil then return lines() end
    local file, reason = open(name)
    if not file then error(reason, 2) end
    local readline, close = file.read, file.close
    return function()
        local line = readline(file)
        if line == nil then close(file) end
        return line
    end
end

_G.loadfile = function(path)
    return loadfile(path)
end

function dofile(path)
    local chunk, reason = loadfile(path)
    if not chunk then error(reason, 2) end
    return chunk()
end

function load(piece, name)
    if type(piece) ~= "function" then error("el argumento 1 de 'load' debe ser una función", 2) end
    local pieces = {}
    for i = 1, 1e9 do
        local text = piece()
        if text == nil or text == "" then break end
        if type(text) ~= "string" then return nil, "la función debe devolver textos" end
        pieces[i] = text
    end
    return loadstring(concat(pieces), name or "load")
end

package.path, package.cpath = "?.lua;?/init.lua", ""
package.loaders[2] = function(name)
    local file, tried = gsub(name, "%.", "/"), {}
    for template in gmatch(tostring(package.path), "[^;]+") do
        local path = gsub(template, "%?", (gsub(file, "%%", "%%%%")))
        if readable(path) then
            local chunk, reason = loadfile(path)
            if not chunk then error(reason, 0) end
            return chunk
        end
        tried[#tried + 1] = "\n\tno existe '" .. path .. "'"
    end
    return concat(tried)
end
package.loaders[3], package.loaders[4] = nil, nil
