-- Links and pictures of a page of the manual as its HTML has them: in the folder html beside the Markdown.
function Link(link)
  link.target = link.target:gsub("^([%w-]+)%.md", "%1.html")
  return link
end

function Image(image)
  image.src = "../" .. image.src
  return image
end
